# Compile and link flags of the asan preset; the whole build gets them, so that no object is left out.
if(TALLOWMERE_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

# The fuzz preset: clang counts the branches of the whole build, each target links the driver itself.
if(TALLOWMERE_FUZZ)
  add_compile_options(
    -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
