#ifndef CODEMAP_H
#define CODEMAP_H

#include <QVector>
#include <map>

/*
 * A table from 16-bit codes to 16-bit codes, read from "/tmp/list.txt".
 *
 * The file is UTF-16 little-endian text: two bytes of byte-order mark, then 45 records of ten
 * bytes, each a key, a separator, a value (two bytes each) and a line end (four bytes).
 */
class CodeMap
{
public:
    /* Adds the file's records; a repeated key takes the later value, and records that a short
     * file lacks read as zeros. 1 when the file cannot be opened, else 0. */
    int Init();

    /* The value of `code`, 0 when it is not in the table. */
    unsigned short Trans(unsigned short code) const;

    /* Appends every key, ascending, to `keys`. Returns the number of keys in the table. */
    int GetKeys(QVector<unsigned short>& keys) const;

private:
    std::map<unsigned short, unsigned short> m_codes;
};

#endif
