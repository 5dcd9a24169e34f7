# The plain recipes of filters, palettes and reducers, for the programs that hold the fast ones against them.
include_guard(GLOBAL)

add_library(mobrel-recipes STATIC
  ${CMAKE_CURRENT_LIST_DIR}/RecipeCall.cpp
  ${CMAKE_CURRENT_LIST_DIR}/TestPictures.cpp
  ${CMAKE_CURRENT_LIST_DIR}/recipes_displace.cpp
  ${CMAKE_CURRENT_LIST_DIR}/recipes_dither.cpp
  ${CMAKE_CURRENT_LIST_DIR}/recipes_neighbourhood.cpp
  ${CMAKE_CURRENT_LIST_DIR}/recipes_palette.cpp
  ${CMAKE_CURRENT_LIST_DIR}/recipes_point.cpp
  ${CMAKE_CURRENT_LIST_DIR}/recipes_rank.cpp
  ${CMAKE_CURRENT_LIST_DIR}/recipes_select.cpp
  ${CMAKE_CURRENT_LIST_DIR}/recipes_texture.cpp
)
target_link_libraries(mobrel-recipes PUBLIC mobrel-core)
target_include_directories(mobrel-recipes PUBLIC ${CMAKE_CURRENT_LIST_DIR}/..)
