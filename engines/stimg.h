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

/* Frees a record with all of its buffers. Null is allowed. */
void releaseImage(_stImg* image);

#endif
