/* SPDX-License-Identifier: 0BSD */
/*
 * The dictionary engine: finds installed dictionaries, opens one at a time, looks words up.
 *
 * Every function returns a status: 0 or more is success, a negative value failure. All records
 * are allocated and freed by the engine; callers never write into them. Text is UTF-16 in native
 * byte order, lengths are in bytes.
 *
 * Threads: calls on one dictionary list are made by one thread at a time.
 *
 * The byte offsets noted at the fields hold where pointers are 32 bits wide; they are asserted at
 * the end of this file. On wider machines the records have their natural layout.
 */
#ifndef ZEMBRA_DIC_H
#define ZEMBRA_DIC_H

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

enum {
    ZEMBRA_DIC_WORD_UNITS = 128, /* code units a headword or a name may have */
    ZEMBRA_DIC_MAX_RESULTS = 20  /* nodes that one search returns at the most */
};

/* One dictionary; opaque. */
struct tagDictInfo;

/* One link of the dictionaries of a language pair. */
struct tagDictLink
{
    struct tagDictInfo* dict; /* 0 */
    struct tagDictLink* next; /* 4: null at the end */
};

/* One language pair. */
struct tagDictTypeInfo
{
    int32_t lanID;                        /*   0: language of the headwords */
    int16_t endLanID;                     /*   4: language of the definitions */
    int32_t nameBytes;                    /*   8: length of the name in bytes */
    uint16_t name[ZEMBRA_DIC_WORD_UNITS]; /*  12: display name, no terminator */
    struct tagDictLink* dicts;            /* 268: the dictionaries of the pair */
    struct tagDictTypeInfo* next;         /* 272: null at the end */
};

/* One entry that a search found. The first line of the definition is its gist: translations or
 * meanings, numbered when there are several. What follows (pronunciation, examples, notes), and
 * what stands in square brackets, is to be seen rather than heard. */
struct tagResultNodeInfo
{
    uint16_t word[ZEMBRA_DIC_WORD_UNITS]; /*   0: headword as the dictionary spells it */
    int32_t wordBytes;                    /* 256: its length in bytes, at most 254 */
    uint8_t property;                     /* 260: property of the word, engine-defined */
    const uint16_t* text;                 /* 264: definition, may have several lines */
    int32_t textBytes;                    /* 268: its length in bytes */
    struct tagResultNodeInfo* next;       /* 272: null at the end */
};

/* A copy of the first result's headword, kept by the application. */
struct tagWordPropertyIfo
{
    uint16_t word[ZEMBRA_DIC_WORD_UNITS]; /*   0 */
    int32_t wordBytes;                    /* 256 */
    uint8_t property;                     /* 260 */
    uint8_t zero;                         /* 261: always 0 */
};

/* Finds the dictionaries in `count` folders (paths in the file system's encoding, each ending in
 * a slash) and stores a list handle, owned by the caller until ZEMBRA_DIC_FreeDicList. Folders
 * that are missing and files that are no dictionaries are passed over; no dictionary at all gives
 * an empty list and success. */
int32_t ZEMBRA_DIC_GetDicList(void** dicList, const char* const* dirs, int32_t count);

/* Releases a list and stores null; every record and text that came from it becomes invalid. A
 * dictionary still open is closed. Null or a pointer to null succeeds. */
int32_t ZEMBRA_DIC_FreeDicList(void** dicList);

/* Stores the language pairs of the list, named in `language` ("ENGLISH"), or null when there are
 * none. Owned by the caller until ZEMBRA_DIC_FreeTypeDicList. The order of pairs and dictionaries
 * is stable: settings refer to places in it. A pair may be without dictionaries: it keeps its place
 * while they are away. Dictionary pointers stay valid until the list is freed. */
int32_t ZEMBRA_DIC_GetDicTypeList(struct tagDictTypeInfo** typeList, void* dicList,
                                  const char* language);

/* Releases the pairs and stores null. Null or a pointer to null succeeds. */
int32_t ZEMBRA_DIC_FreeTypeDicList(struct tagDictTypeInfo** typeList);

/* Stores the dictionary with that number: 0 is the first dictionary of the first pair, then on in
 * the order of the pairs. `kind` is 1. A number outside the list fails and stores null. */
int32_t ZEMBRA_DIC_SelectDic(struct tagDictInfo** dict, void* dicList, int32_t kind,
                             int32_t number);

/* What ZEMBRA_DIC_DescribeDic tells. */
enum {
    ZEMBRA_DIC_NAME =
        0, /* display name: one line, at most ZEMBRA_DIC_WORD_UNITS units, not empty */
    ZEMBRA_DIC_ORIGIN = 1 /* where it comes from and under what licence: lines, perhaps none */
};

/* Tells something about a dictionary, open or not. Writes as much of the text as fits into `bytes`
 * bytes, without terminator and without half characters, and returns the number of bytes written.
 * Fails for null, another `what`, a length that is negative or odd, no place for a text of any
 * length, and for a dictionary that is away. May read files: some milliseconds. */
int32_t ZEMBRA_DIC_DescribeDic(const struct tagDictInfo* dict, int32_t what, uint16_t* text,
                               int32_t bytes);

/* Opens a dictionary; searches go to it from then on. Fails for null or when its files cannot be
 * read. The first time may take seconds: not for the interface thread. */
int32_t ZEMBRA_DIC_Initialize(struct tagDictInfo* dict);

/* Closes a dictionary. Null succeeds, and so does one that is not open. */
int32_t ZEMBRA_DIC_Uninitialize(struct tagDictInfo* dict);

/* Looks a word up in the open dictionary. `kind` is 1, `flag` 0. Stores the entries, best first,
 * owned by the caller until ZEMBRA_DIC_FreeSearchResult. A word that is not there is success with
 * null stored. Fails when no dictionary is open, when what would be found cannot be read (its card
 * was pulled out: opening it again may help), or when `bytes` is negative or odd. */
int32_t ZEMBRA_DIC_SearchWord(struct tagResultNodeInfo** result, const uint16_t* word,
                              int32_t bytes, int32_t kind, int32_t flag);

/* Finds the first dictionary word of a line of text. Stores its entries like
 * ZEMBRA_DIC_SearchWord (null when the line has none), and into *position the 1-based index in
 * code units of the word's first character, 0 when there is none. */
int32_t ZEMBRA_DIC_GetFirstComment(struct tagResultNodeInfo** result, int32_t* position,
                                   const uint16_t* text, int32_t bytes);

/* Releases a result and stores null. Null or a pointer to null succeeds. */
int32_t ZEMBRA_DIC_FreeSearchResult(struct tagResultNodeInfo** result);

#ifdef __cplusplus
}
#define ZEMBRA_DIC_ASSERT(condition) static_assert(condition, "record layout")
#else
#define ZEMBRA_DIC_ASSERT(condition) _Static_assert(condition, "record layout")
#endif

/* clang-format off */
#define ZEMBRA_DIC_AT(record, field, offset) \
    ZEMBRA_DIC_ASSERT(sizeof(void*) != 4 || offsetof(struct record, field) == (offset))

ZEMBRA_DIC_AT(tagDictLink, dict, 0);
ZEMBRA_DIC_AT(tagDictLink, next, 4);
ZEMBRA_DIC_AT(tagDictTypeInfo, lanID, 0);
ZEMBRA_DIC_AT(tagDictTypeInfo, endLanID, 4);
ZEMBRA_DIC_AT(tagDictTypeInfo, nameBytes, 8);
ZEMBRA_DIC_AT(tagDictTypeInfo, name, 12);
ZEMBRA_DIC_AT(tagDictTypeInfo, dicts, 268);
ZEMBRA_DIC_AT(tagDictTypeInfo, next, 272);
ZEMBRA_DIC_AT(tagResultNodeInfo, word, 0);
ZEMBRA_DIC_AT(tagResultNodeInfo, wordBytes, 256);
ZEMBRA_DIC_AT(tagResultNodeInfo, property, 260);
ZEMBRA_DIC_AT(tagResultNodeInfo, text, 264);
ZEMBRA_DIC_AT(tagResultNodeInfo, textBytes, 268);
ZEMBRA_DIC_AT(tagResultNodeInfo, next, 272);
ZEMBRA_DIC_AT(tagWordPropertyIfo, word, 0);
ZEMBRA_DIC_AT(tagWordPropertyIfo, wordBytes, 256);
ZEMBRA_DIC_AT(tagWordPropertyIfo, property, 260);
ZEMBRA_DIC_AT(tagWordPropertyIfo, zero, 261);
/* clang-format on */
#endif
