/*
 * The interface languages of a pen, for tests that show it in each of them.
 */
#ifndef INTERFACELANGUAGE_H
#define INTERFACELANGUAGE_H

#include <QSet>
#include <QStringList>
#include <QTranslator>
#include <functional>
#include <utility>

/* One language. Its texts are those of the build's .qm file; it notes which of them the application
 * asks for, so that a test can tell what it has not shown. */
class InterfaceLanguage : public QTranslator
{
public:
    /* A text of the source and where it stands in it: (context, text). */
    using Text = std::pair<QString, QString>;

    /* By its code in the pen's table of languages: 1 Simplified Chinese, 104 German. */
    explicit InterfaceLanguage(int code);

    /* False when the build has no file of it. */
    bool isLoaded() const { return m_loaded; }

    /* Makes a fresh run root (SWIPELINE_ROOT) one of a pen that speaks the language: language
     * tables as a pen has them, and the settings that name it. */
    void chooseOnPen() const;

    /* Texts of the language that the application has not asked for. */
    QList<Text> neverAsked() const;

    QString translate(const char* context, const char* text, const char* disambiguation,
                      int n) const override;
    bool isEmpty() const override { return false; }

private:
    int m_code;
    bool m_loaded;
    QString m_source;
    mutable QSet<Text> m_asked;
};

/* The texts that stand at that place (translations/places.txt), in the order of the file. */
QList<InterfaceLanguage::Text> textsAt(const QString& place);

#endif
