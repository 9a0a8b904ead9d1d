#ifndef STIMG_H
#define STIMG_H

/*
 * One scanned image on its way from the scan engine to recognition.
 *
 * Made on the heap by the scan engine's callback and owned from then on by whoever receives it.
 */
struct _stImg
{
    unsigned char* buffer = nullptr; // second buffer, new[]; null when it comes from a scan
    unsigned char* image = nullptr;  // width x height bytes, one a pixel, new[]
    int width = 0;                   // pixels
    int height = 0;                  // pixels
    unsigned char flag = 0;          // the scan engine's byte, handed on to recognition
};

/* The most pixels that a record takes, far above any line that fits on a page. */
constexpr long long MaxImagePixels = 64LL * 1024 * 1024;

/* Whether an engine's picture has a size to work with: neither negative nor above
 * MaxImagePixels. */
bool isSaneImageSize(int width, int height);

/* Copies a picture of width x height bytes into a record that the caller owns. A size that is not
 * sane, or that memory does not suffice for, is no picture: the record is then 0 x 0 with an empty
 * image array, so that the user hears that nothing was recognised. Any thread. */
_stImg* makeImage(const unsigned char* pixels, int width, int height, unsigned char flag);

/* Frees a record with all of its buffers. Null is allowed. */
void releaseImage(_stImg* image);

#endif
