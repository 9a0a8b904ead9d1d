#ifndef TYPEDIALOG_H
#define TYPEDIALOG_H

#include "desk/pagesource.h"

#include <QDialog>
#include <QTimer>

class QComboBox;
class QDoubleSpinBox;
class QFontComboBox;
class QPlainTextEdit;

/* A text of the user's own, its language, font and size. The page follows what is typed. */
class TypeDialog : public QDialog
{
    Q_OBJECT

public:
    /* Begins with the text of `source`, if it is a typed one, else with `language`. */
    TypeDialog(const PageSource& source, const QString& language, QWidget* parent = nullptr);

    /* The page as it is set now. */
    PageSource source() const;

signals:
    void pageWanted(const PageSource& source);

private:
    void begin(const PageSource& source, const QString& language);
    void takeLanguage();

    QPlainTextEdit* m_text;
    QComboBox* m_language;
    QFontComboBox* m_family;
    QDoubleSpinBox* m_size;
    QTimer m_soon; // a page is set when the hands rest
};

#endif
