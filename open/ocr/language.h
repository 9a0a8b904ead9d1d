#ifndef OPEN_OCR_LANGUAGE_H
#define OPEN_OCR_LANGUAGE_H

namespace ocr {

/* What the recogniser can be set to; the values are those of ZEMBRA_OCR_LANG_... */
enum class Language { Chinese = 1, Latin = 2, Cyrillic = 3 };

} // namespace ocr

#endif
