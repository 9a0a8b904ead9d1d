#include "open/iap/framesource.h"

#include "open/iap/camerasource.h"
#include "open/iap/desksource.h"
#include "open/iap/foldersource.h"

#include <cstdlib>

std::unique_ptr<FrameSource> makeFrameSource()
{
    if (const char* folder = std::getenv(FolderSource::Variable))
        return std::make_unique<FolderSource>(folder);
    if (std::getenv(CameraOptions::CameraVariable)) {
        static DeviceCalls calls;
        return std::make_unique<CameraSource>(calls);
    }
    return std::make_unique<DeskSource>();
}
