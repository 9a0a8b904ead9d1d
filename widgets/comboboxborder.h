#ifndef COMBOBOXBORDER_H
#define COMBOBOXBORDER_H

#include <QComboBox>

/* A combo box with a white border of one pixel round it, whatever the style draws. Mouse presses
 * are ignored: on a pen it is moved with keys. Interface thread only. */
class ComboBoxBorder : public QComboBox
{
    Q_OBJECT

public:
    explicit ComboBoxBorder(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
};

#endif
