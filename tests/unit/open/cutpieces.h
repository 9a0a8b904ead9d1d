#ifndef CUTPIECES_H
#define CUTPIECES_H

#include "open/tts/piecer.h"

#include <QStringList>

#include <string>
#include <vector>

/* What the tests of the cutting of texts into pieces and words share. */
namespace tts {

inline std::vector<Piece> cut(const QString& text, Script script = Script::Latin)
{
    const std::u16string units = text.toStdU16String();
    Piecer piecer(units, script);
    std::vector<Piece> pieces;
    while (!piecer.atEnd())
        pieces.push_back(piecer.next());
    return pieces;
}

/* The words as they stand in the text. */
inline QStringList wordsOf(const QString& text, Script script = Script::Latin)
{
    QStringList words;
    for (const Piece& piece : cut(text, script))
        for (const Word& word : piece.words)
            words.append(text.mid(word.offset, word.length));
    return words;
}

inline QStringList piecesOf(const QString& text, Script script = Script::Latin)
{
    QStringList pieces;
    for (const Piece& piece : cut(text, script))
        pieces.append(QString::fromStdU32String(piece.text).simplified());
    return pieces;
}

inline QString tag(int milliseconds)
{
    return QStringLiteral("<vtml_pause time=\"%1\"/>").arg(milliseconds);
}

/* Every word lies inside its text and piece, after the one before. */
inline bool areOrdered(const std::vector<Piece>& pieces, qsizetype units)
{
    int after = 0;
    for (const Piece& piece : pieces) {
        std::size_t inPiece = 0;
        for (const Word& word : piece.words) {
            if (word.offset < after || word.length < 1 || word.offset + word.length > units
                || word.begin < inPiece || word.end <= word.begin || word.end > piece.text.size())
                return false;
            after = word.offset + word.length;
            inPiece = word.end;
        }
    }
    return true;
}

} // namespace tts

#endif
