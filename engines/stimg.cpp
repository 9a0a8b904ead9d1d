#include "engines/stimg.h"

#include <algorithm>
#include <cstddef>
#include <new>

bool isSaneImageSize(int width, int height)
{
    return width >= 0 && height >= 0 && static_cast<long long>(width) * height <= MaxImagePixels;
}

_stImg* makeImage(const unsigned char* pixels, int width, int height, unsigned char flag)
{
    auto* record = new _stImg;
    record->flag = flag;

    const bool sane = isSaneImageSize(width, height);
    const std::size_t size = sane ? static_cast<std::size_t>(width) * height : 0;
    record->image = new (std::nothrow) unsigned char[size];
    if (sane && record->image) {
        record->width = width;
        record->height = height;
        std::copy_n(pixels, size, record->image);
    } else if (!record->image) {
        record->image = new unsigned char[0];
    }
    return record;
}

void releaseImage(_stImg* image)
{
    if (!image)
        return;
    delete[] image->buffer;
    delete[] image->image;
    delete image;
}
