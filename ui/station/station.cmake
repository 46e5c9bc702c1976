# The station program: the windows over the logic.
add_executable(zorbel
  ${CMAKE_CURRENT_LIST_DIR}/ControllerListWindow.cpp
  ${CMAKE_CURRENT_LIST_DIR}/MessageBoxDialogs.cpp
  ${CMAKE_CURRENT_LIST_DIR}/StationHub.cpp
  ${CMAKE_CURRENT_LIST_DIR}/main.cpp
)
target_link_libraries(zorbel PRIVATE zorbel_ui)
