# The station program: the windows over the logic.
add_executable(zorbel
  ${CMAKE_CURRENT_LIST_DIR}/MessageBoxDialogs.cpp
  ${CMAKE_CURRENT_LIST_DIR}/StationScreenshot.cpp
  ${CMAKE_CURRENT_LIST_DIR}/main.cpp
)
# the installed sounds, found from the program's own directory wherever the root lies
file(RELATIVE_PATH ZORBEL_SOUNDS_FROM_BIN /${CMAKE_INSTALL_BINDIR} /${ZORBEL_SOUND_DIR})
target_compile_definitions(zorbel PRIVATE ZORBEL_VERSION="${PROJECT_VERSION}"
                                          ZORBEL_SOUNDS_FROM_BIN="${ZORBEL_SOUNDS_FROM_BIN}")
target_link_libraries(zorbel PRIVATE zorbel_ui)
