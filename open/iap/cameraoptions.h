#ifndef CAMERAOPTIONS_H
#define CAMERAOPTIONS_H

#include <optional>
#include <string>

/* What the environment says about a camera. */
struct CameraOptions
{
    static constexpr const char* CameraVariable = "SWIPELINE_CAMERA";

    std::string camera; // SWIPELINE_CAMERA: a device, a video, a pipe that brings a video
    double widthMm = 0; // SWIPELINE_CAMERA_MM: paper that the whole picture shows; 0 not said
    int turn = 0;       // SWIPELINE_CAMERA_TURN: degrees clockwise, 0, 90, 180 or 270
    int width = 320;    // SWIPELINE_CAMERA_MODE, "320x240@120": what a device is asked for
    int height = 240;
    int rate = 120;   // pictures a second
    std::string tip;  // SWIPELINE_TIP: input device of the tip switch
    int tipKey = 330; // SWIPELINE_TIP_KEY: its code, BTN_TOUCH unless said otherwise

    /* Nothing, and why, when a variable holds what cannot be meant. */
    static std::optional<CameraOptions> fromEnvironment(std::string& why);
};

#endif
