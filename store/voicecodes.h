#ifndef VOICECODES_H
#define VOICECODES_H

/* Which code the engines are told for a language and the voice that the user chose. No state. */
namespace voicecodes {

constexpr int Chinese = 1;
constexpr int English = 101;
constexpr int SpanishLanguage = 105;
constexpr int Russian = 151;
constexpr int FirstEnglishVoice = 200;
constexpr int SpanishVariant = 202;

/* The English voice of an index 0 to 5; `otherwise` for any other index. 3 and 5 are the same
 * voice, and 204 has no index. */
int englishVoice(int index, int otherwise);

/* The recognition engine's language for a scan language: 1 Chinese, 3 Russian, 2 all others. */
int engineKind(int language);

/* What the voice setting of the scan mode selects. `language` is the scan language's code, 0 when
 * there is none. */
int forScanVoice(int voice, int language);

/* What the choice of a scan language selects. */
int forScanLanguage(int voice, int language, bool spanishVariant);

/* What the voice setting of the dictionary mode selects. `language` is the dictionary's. */
int forDictVoice(int voice, int language, bool spanishVariant);

} // namespace voicecodes

#endif
