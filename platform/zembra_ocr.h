/* SPDX-License-Identifier: 0BSD */
/*
 * The text-recognition (OCR) engine: a picture of one line of print becomes text.
 *
 * Threads: a handle is used by one thread at a time as far as ZEMBRA_OCR_Recognize goes;
 * ZEMBRA_OCR_SetActiveLanguages may be called from another thread meanwhile and takes effect
 * with the next recognition. Different handles are independent.
 */
#ifndef ZEMBRA_OCR_H
#define ZEMBRA_OCR_H

#ifdef __cplusplus
extern "C" {
#endif

/* Members of the language list of ZEMBRA_OCR_SetActiveLanguages. */
enum {
    ZEMBRA_OCR_LANG_END = -1,    /* ends the list */
    ZEMBRA_OCR_LANG_CHINESE = 1, /* Chinese */
    ZEMBRA_OCR_LANG_LATIN = 2,   /* languages in Latin script */
    ZEMBRA_OCR_LANG_CYRILLIC = 3 /* Russian, with English words among it */
};

/* Values of `direction` of ZEMBRA_OCR_Recognize, the same as those of the scan engine. */
enum {
    ZEMBRA_OCR_HORIZONTAL = 0,
    ZEMBRA_OCR_VERTICAL = 1 /* characters of vertically set text, ordered left to right */
};

/* Codes returned by the functions that return int. */
enum {
    ZEMBRA_OCR_OK = 0,
    ZEMBRA_OCR_ERROR = -1,    /* wrong argument or handle, or out of memory */
    ZEMBRA_OCR_NO_MODEL = -2, /* the data folder lacks the model for the active language */
    ZEMBRA_OCR_DOUBTFUL = 1   /* there is text, but the engine doubts it */
};

/*
 * Creates an engine. Models are looked for in `dataDir` (a path in the file system's encoding)
 * and loaded at first use.
 * Stores the handle, owned by the caller until ZEMBRA_OCR_FreeEngine, or null on failure.
 * Returns ZEMBRA_OCR_OK or ZEMBRA_OCR_ERROR. A folder without models is no error here.
 */
int ZEMBRA_OCR_Initialize(void** handle, char* dataDir);

/* Chooses the languages: a list ended by -1; its first member counts. Returns at once (models
 * load in the background). ZEMBRA_OCR_OK, or ZEMBRA_OCR_ERROR for a null or empty list or a
 * member that is none of the above; the choice is then unchanged. */
int ZEMBRA_OCR_SetActiveLanguages(void* handle, int* languages);

/*
 * Recognises one line; blocks until done.
 *
 * image          width x height bytes, one byte a pixel, row after row; read only.
 * text, length   out: the text as UTF-16 code units in native byte order and their number.
 *                The buffer belongs to the engine until ZEMBRA_OCR_FreeRecogResult. Nothing
 *                recognised: null and 0.
 * direction      ZEMBRA_OCR_HORIZONTAL or ZEMBRA_OCR_VERTICAL.
 * flag           the byte that the scan engine delivered with the image.
 *
 * Returns ZEMBRA_OCR_OK (also when nothing was recognised), ZEMBRA_OCR_DOUBTFUL, or a negative
 * code with null and 0.
 */
int ZEMBRA_OCR_Recognize(void* handle, unsigned char* image, int width, int height,
                         unsigned short** text, int* length, int direction, unsigned char flag);

/* Releases a result; null is allowed. Returns ZEMBRA_OCR_OK. */
int ZEMBRA_OCR_FreeRecogResult(unsigned short* text);

/* Ends the engine's work on a handle: waits for its background threads. Returns ZEMBRA_OCR_OK,
 * or ZEMBRA_OCR_ERROR for null. Afterwards only ZEMBRA_OCR_FreeEngine may be called with it. */
int ZEMBRA_OCR_ExitEngine(void* handle);

/* Releases a handle after ZEMBRA_OCR_ExitEngine. Results not yet released stay valid. Returns
 * ZEMBRA_OCR_OK, or ZEMBRA_OCR_ERROR for null. */
int ZEMBRA_OCR_FreeEngine(void* handle);

#ifdef __cplusplus
}
#endif
#endif
