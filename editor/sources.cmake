target_sources(swipeline_app PRIVATE
    ${CMAKE_SOURCE_DIR}/editor/appendrules.cpp
    ${CMAKE_SOURCE_DIR}/editor/myedit.cpp
    ${CMAKE_SOURCE_DIR}/editor/myedit_keys.cpp
    ${CMAKE_SOURCE_DIR}/editor/myedit_reading.cpp
    ${CMAKE_SOURCE_DIR}/editor/myedit_rename.cpp
    ${CMAKE_SOURCE_DIR}/editor/myedit_scan.cpp
    ${CMAKE_SOURCE_DIR}/editor/myedit_seek.cpp
    ${CMAKE_SOURCE_DIR}/editor/myedit_walk.cpp
    ${CMAKE_SOURCE_DIR}/editor/quickseek.cpp
    ${CMAKE_SOURCE_DIR}/editor/readingvoice.cpp
    ${CMAKE_SOURCE_DIR}/editor/scannedname.cpp
    ${CMAKE_SOURCE_DIR}/editor/wordwalk.cpp
)
