target_sources(swipeline_app PRIVATE
    ${CMAKE_SOURCE_DIR}/app/mainwindow.cpp
    ${CMAKE_SOURCE_DIR}/app/mainwindow_dictflows.cpp
    ${CMAKE_SOURCE_DIR}/app/mainwindow_messages.cpp
    ${CMAKE_SOURCE_DIR}/app/mainwindow_scanflows.cpp
    ${CMAKE_SOURCE_DIR}/app/mainwindow_speech.cpp
    ${CMAKE_SOURCE_DIR}/app/messagelog.cpp
    ${CMAKE_SOURCE_DIR}/app/mystyle.cpp
    ${CMAKE_SOURCE_DIR}/app/palette.cpp
    ${CMAKE_SOURCE_DIR}/app/processglobals.cpp
    ${CMAKE_SOURCE_DIR}/app/startup.cpp
    ${CMAKE_SOURCE_DIR}/app/storagecheck.cpp
    ${CMAKE_SOURCE_DIR}/app/widgetchange.cpp
)
