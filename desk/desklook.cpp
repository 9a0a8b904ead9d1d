#include "desk/desklook.h"

#include <QApplication>
#include <QPalette>
#include <QStyleFactory>

namespace desklook {

void apply()
{
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QPalette palette(Desk);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(role, Text);
    palette.setColor(QPalette::Base, Panel);
    palette.setColor(QPalette::Highlight, Accent);
    palette.setColor(QPalette::HighlightedText, Panel);
    QApplication::setPalette(palette);
}

} // namespace desklook
