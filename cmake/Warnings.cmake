# The one place where the project's warnings are set: every target of ours links tallowmere_strict.
add_library(tallowmere_strict INTERFACE)
target_compile_options(tallowmere_strict INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
  -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align -Wunused -Wnull-dereference
  -Wdouble-promotion -Wformat=2 -Wimplicit-fallthrough
  $<$<CONFIG:Debug>:-Werror>)  # who only runs the program may have a newer compiler
target_compile_definitions(tallowmere_strict INTERFACE
  QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_NO_KEYWORDS QT_STRICT_ITERATORS)
