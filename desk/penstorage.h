#ifndef PENSTORAGE_H
#define PENSTORAGE_H

#include <QObject>
#include <QString>

/*
 * What a hand can do to the pen's memory: take the card out and put it back, and fill the memory.
 *
 * A card that is out is the folder "mnt/mmc" of the run root under another name beside it; what the
 * pen would write goes nowhere, as with an empty slot. It is put back when this object goes, and
 * when one is made after the desk was cut off. A full memory is a file below the root that
 * open/system asks for: the pen is told that no byte is free, and no file on the card can grow.
 */
class PenStorage : public QObject
{
    Q_OBJECT

public:
    explicit PenStorage(QString root, QObject* parent = nullptr);
    ~PenStorage() override;

    bool isCardOut() const;
    bool isFull() const;

    /* False when it cannot be done; see errorString(). */
    bool setCardOut(bool out);
    bool setFull(bool full);
    QString errorString() const { return m_error; }

signals:
    void cardChanged(bool out);
    void fullChanged(bool full);

private:
    QString place(const char* name) const;
    bool fail(const QString& error);

    const QString m_root;
    QString m_error;
};

#endif
