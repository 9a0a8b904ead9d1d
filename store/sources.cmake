target_sources(swipeline_app PRIVATE
    ${CMAKE_SOURCE_DIR}/store/configreader.cpp
    ${CMAKE_SOURCE_DIR}/store/encodingguess.cpp
    ${CMAKE_SOURCE_DIR}/store/engineunits.cpp
    ${CMAKE_SOURCE_DIR}/store/filelist.cpp
    ${CMAKE_SOURCE_DIR}/store/filemanager.cpp
    ${CMAKE_SOURCE_DIR}/store/fileoperations.cpp
    ${CMAKE_SOURCE_DIR}/store/filewriter.cpp
    ${CMAKE_SOURCE_DIR}/store/languagemanager.cpp
    ${CMAKE_SOURCE_DIR}/store/launcher.cpp
    ${CMAKE_SOURCE_DIR}/store/localetext.cpp
    ${CMAKE_SOURCE_DIR}/store/plainfile.cpp
    ${CMAKE_SOURCE_DIR}/store/scannames.cpp
    ${CMAKE_SOURCE_DIR}/store/scantext.cpp
    ${CMAKE_SOURCE_DIR}/store/settingstable.cpp
    ${CMAKE_SOURCE_DIR}/store/statisticmanager.cpp
    ${CMAKE_SOURCE_DIR}/store/voicecodes.cpp
)
