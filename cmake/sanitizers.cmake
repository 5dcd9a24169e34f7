if(MOBREL_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

# For programs of tests and the gallery: their own code is not optimised where it is sanitized, which would take most of the
# build's time. What they test is.
function(mobrel_build_quickly target)
  if(MOBREL_SANITIZE)
    target_compile_options(${target} PRIVATE -O0)
  endif()
endfunction()
