#ifndef PAGEBAR_H
#define PAGEBAR_H

#include "desk/pagesource.h"

#include <QWidget>

class QCheckBox;
class QComboBox;
class QSpinBox;
struct PrintedPage;

/*
 * Chooses the page on the desk: a sample, a file, a text of the user's own, the sheet of a PDF
 * file; and whether a ruler lies on it.
 */
class PageBar : public QWidget
{
    Q_OBJECT

public:
    explicit PageBar(QWidget* parent = nullptr);

    /* Names the page that lies on the desk. */
    void showPage(const PrintedPage& page, const PageSource& source);

    bool hasRuler() const;
    void setRuler(bool on);
    void setDark(bool dark);

    /* Asks for a file. */
    void openPage();

signals:
    void pageWanted(const PageSource& source);
    void typingWanted();
    void rulerChanged(bool on);
    void darkChanged(bool dark);
    void helpWanted();

private:
    QComboBox* m_pages;
    QSpinBox* m_sheet;
    QCheckBox* m_ruler;
    QCheckBox* m_dark;
    PageSource m_source;
};

#endif
