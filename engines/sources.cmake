target_sources(swipeline_app PRIVATE
    ${CMAKE_SOURCE_DIR}/engines/charscanner.cpp
    ${CMAKE_SOURCE_DIR}/engines/codemap.cpp
    ${CMAKE_SOURCE_DIR}/engines/crecthread.cpp
    ${CMAKE_SOURCE_DIR}/engines/csoundthread.cpp
    ${CMAKE_SOURCE_DIR}/engines/cttsthread.cpp
    ${CMAKE_SOURCE_DIR}/engines/cttsthread_setup.cpp
    ${CMAKE_SOURCE_DIR}/engines/cttsthreadforset.cpp
    ${CMAKE_SOURCE_DIR}/engines/flags.cpp
    ${CMAKE_SOURCE_DIR}/engines/menuvoice.cpp
    ${CMAKE_SOURCE_DIR}/engines/ocrpen.cpp
    ${CMAKE_SOURCE_DIR}/engines/recchar.cpp
    ${CMAKE_SOURCE_DIR}/engines/scanstart.cpp
    ${CMAKE_SOURCE_DIR}/engines/speechworker.cpp
    ${CMAKE_SOURCE_DIR}/engines/stimg.cpp
    ${CMAKE_SOURCE_DIR}/engines/translater.cpp
    ${CMAKE_SOURCE_DIR}/engines/ttsplayer.cpp
)
