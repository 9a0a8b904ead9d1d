#include "engines/stimg.h"

void releaseImage(_stImg* image)
{
    if (!image)
        return;
    delete[] image->buffer;
    delete[] image->image;
    delete image;
}
