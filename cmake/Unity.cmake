# Many files are compiled as one where only the whole is wanted: the tests everywhere, all else in the presets asan
# and fuzz. Headers of others are most of a file's work, so this takes a quarter of the time. The other presets
# compile each file of src alone, which shows an include that is missing.
set(CMAKE_UNITY_BUILD_BATCH_SIZE 12)

# tallowmere_alone(FILES...): these are compiled alone all the same, since they define names that others of
# their library define too (each screen has its table of places, each family of RTF words its table of words), or
# include X11, whose headers define macros.
function(tallowmere_alone)
  list(TRANSFORM ARGN PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
  set_source_files_properties(${ARGN} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
endfunction()
