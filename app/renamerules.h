#ifndef RENAMERULES_H
#define RENAMERULES_H

#include <QString>

/* Which names the user may give to a scan file, and what is said about them. No state; whether a
 * name is taken is the store's to tell. */
namespace renamerules {

/* Characters (UTF-16 units) that a name may have at most. */
constexpr int MaxLength = 10;

enum class Refusal { None, Empty, TooLong, InvalidCharacter, Reserved };

/* What is wrong with a name, as nameFromScan() gives it; of several faults the first in the order
 * above. */
Refusal judge(const QString& name);

/* Whether none of the characters | < > ? : " \ / * occurs. */
bool judgeName(const QString& name);

/* Whether a PC does not take the name for a file (CON, LPT1), or the store would not find the file
 * by it again (".txt" within it). */
bool isReserved(const QString& name);

/* What the user is told; empty for Refusal::None. */
QString text(Refusal refusal);

/* The question before a file is renamed: both names. */
QString question(const QString& oldName, const QString& newName);

} // namespace renamerules

#endif
