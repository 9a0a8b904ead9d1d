/* SPDX-License-Identifier: 0BSD */
/*
 * The image-acquisition (scan) engine.
 *
 * The user presses the pen's tip on the paper and swipes along a line of print. The engine
 * stitches the camera's frames into one panorama of that line and hands it over through a
 * callback when the tip is lifted.
 *
 * Threads: every function may be called from any thread; the engine serialises them itself.
 * The callback runs on a thread of the engine's own, one call at a time.
 */
#ifndef ZEMBRA_IAP_H
#define ZEMBRA_IAP_H

#ifdef __cplusplus
extern "C" {
#endif

/* Values of `direction` of ZEMBRA_IAP_Initialize: how the line runs that the user swipes. */
enum {
    ZEMBRA_IAP_HORIZONTAL = 0, /* lines run across the page */
    ZEMBRA_IAP_VERTICAL = 1    /* lines run down the page (Chinese set vertically) */
};

/* Values of `hand` of ZEMBRA_IAP_Initialize: the hand that holds the pen. It tells which way
 * up the camera sees the print. */
enum { ZEMBRA_IAP_LEFT_HAND = 0, ZEMBRA_IAP_RIGHT_HAND = 1 };

/* Values of `mode` of ZEMBRA_IAP_SetLangPara: the script that is expected on the page. */
enum {
    ZEMBRA_IAP_SCRIPT_HAN = 0,  /* Chinese: square characters, no gaps between words */
    ZEMBRA_IAP_SCRIPT_ALPHA = 1 /* alphabetic scripts */
};

/* Values filled in by ZEMBRA_IAP_GetWorkState. */
enum {
    ZEMBRA_IAP_IDLE = 0,
    ZEMBRA_IAP_BUSY = 1 /* from the press of the tip until the callback has returned */
};

/*
 * Delivery of one panorama.
 *
 * context  reserved, null.
 * image    width x height bytes, one byte a pixel (0 black to 255 white), row after row without
 *          padding, first row on top: the line upright, dark print on light ground. Owned by the
 *          engine and valid during the call only; the receiver copies what it keeps. With
 *          width and height 0 the swipe is over but no line could be made of it: an image that
 *          is not null asks to tell the user so (no print, unreadable motion, the camera went
 *          before the tip was lifted); a null image tells of a mere touch of the tip, too short
 *          for a swipe. An engine that cannot tell the two apart passes null.
 * width    pixels, 0 or more.
 * height   pixels, 0 or more.
 * flag     a byte that belongs to this image; it is to be handed to ZEMBRA_OCR_Recognize
 *          unchanged.
 * extra    reserved, null.
 *
 * Returns 0 when the receiver took the image, -1 when it did not. The engine ignores it.
 */
typedef int (*ZEMBRA_IAP_PanoImageCallback)(void* context, unsigned char* image, int width,
                                            int height, unsigned char flag, char* extra);

/*
 * Starts the engine: switches the camera on and waits for the tip. The stop signal is cleared.
 * A second call without ZEMBRA_IAP_Uninitialize in between applies the new arguments and
 * keeps the callback and script mode that are set.
 *
 * hand       ZEMBRA_IAP_LEFT_HAND or ZEMBRA_IAP_RIGHT_HAND (any non-zero value).
 * direction  ZEMBRA_IAP_HORIZONTAL or ZEMBRA_IAP_VERTICAL (any non-zero value).
 * reserved1, reserved2  0.
 *
 * Returns 0 on success, another value when there is no camera; the engine is then not started.
 */
int ZEMBRA_IAP_Initialize(int hand, int direction, int reserved1, int reserved2);

/* Tells the script that is expected, for swipes that begin after the call. Returns 0, or -1
 * when the engine is not started. */
int ZEMBRA_IAP_SetLangPara(int mode);

/* Sets the receiver of panoramas; null for none. There is one receiver: the last one set.
 * `channel` is 0. May be called before Initialize. Returns 0. */
int ZEMBRA_IAP_SetReceivePanoImageCallBackFunc(int channel, ZEMBRA_IAP_PanoImageCallback callback);

/* Stores ZEMBRA_IAP_IDLE or ZEMBRA_IAP_BUSY into *state. Cheap enough to be asked on every key.
 * Returns 0, or -1 (and leaves *state alone) when the engine is not started or `state` is null. */
int ZEMBRA_IAP_GetWorkState(int* state);

/* 1: deliver nothing from now on, a swipe in progress included; 0: deliver again, from the next
 * press of the tip on. Remembered also while the engine is not started, and cleared by
 * ZEMBRA_IAP_Initialize. Returns 0. */
int ZEMBRA_IAP_SetStopSignal(int flag);

/*
 * Stops the engine and releases the camera. A callback that is running finishes first; after the
 * return none runs, unless the call was made from inside the callback itself: then that one
 * callback is the last.
 *
 * Returns 0 on success, -1 when the engine was not started.
 */
int ZEMBRA_IAP_Uninitialize(void);

#ifdef __cplusplus
}
#endif
#endif
