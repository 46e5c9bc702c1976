# The station program: the windows over the logic.
add_executable(zorbel
  ${CMAKE_CURRENT_LIST_DIR}/MessageBoxDialogs.cpp
  ${CMAKE_CURRENT_LIST_DIR}/StationScreenshot.cpp
  ${CMAKE_CURRENT_LIST_DIR}/main.cpp
)
target_compile_definitions(zorbel PRIVATE ZORBEL_VERSION="${PROJECT_VERSION}")
target_link_libraries(zorbel PRIVATE zorbel_ui)
