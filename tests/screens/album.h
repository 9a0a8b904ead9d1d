/*
 * Exact comparison of screens with pictures that a person has looked at.
 *
 * The pictures of a test program are its album: the PNG files of one folder below pictures/. A
 * picture that is missing fails, and so does one that no test asked for. What differs is written
 * to the build folder as NAME-got.png, NAME-expected.png and NAME-diff.png; scripts/accept-screens
 * takes the got ones over after somebody has looked at them.
 */
#ifndef ALBUM_H
#define ALBUM_H

#include <QImage>
#include <QSet>
#include <QString>

class QWidget;

class Album
{
public:
    /* The album pictures/NAME of this test program. */
    explicit Album(const QString& name);

    /* As above, with folders of their own for pictures and for what differs. */
    Album(const QString& pictures, const QString& dumps);

    /* What `widget` shows, one bit a pixel: grey of 128 and more is lit. Null unless it is
     * 256 x 64 pixels. */
    static QImage screenOf(QWidget* widget);

    /* Compares with the picture NAME.png. True when every pixel is the same; else `problem()`
     * tells what is wrong. */
    bool shows(QWidget* widget, const QString& name);
    bool matches(const QImage& screen, const QString& name);

    QString problem() const;

    /* Names of pictures in the folder that were never asked for. */
    QStringList unused() const;

private:
    QString picture(const QString& name) const;
    void dump(const QString& name, const QString& what, const QImage& image) const;
    void forgetDumps(const QString& name) const;
    bool fail(const QString& problem);

    QString m_pictures;
    QString m_dumps;
    QString m_problem;
    QSet<QString> m_used;
};

/* Stops the test function unless the widget shows the picture. */
#define COMPARE_SCREEN(album, widget, name)                                                        \
    QVERIFY2((album).shows(widget, QStringLiteral(name)), qPrintable((album).problem()))

#endif
