#include "desk/desklook.h"

#include <QApplication>
#include <QPalette>
#include <QStyle>
#include <QStyleFactory>

namespace {

constexpr desklook::Colours Light = {
    .desk = QColor(0xe9, 0xeb, 0xee),
    .mat = QColor(0xdd, 0xe1, 0xe7),
    .panel = QColor(0xff, 0xff, 0xff),
    .panelEdge = QColor(0xd5, 0xd9, 0xdf),
    .button = QColor(0xf6, 0xf7, 0xf9),
    .buttonHover = QColor(0xee, 0xf1, 0xf5),
    .buttonPressed = QColor(0xdf, 0xe4, 0xea),
    .text = QColor(0x22, 0x28, 0x30),
    .quietText = QColor(0x5c, 0x66, 0x72),
    .faintText = QColor(0xa0, 0xa8, 0xb2),
    .accent = QColor(0x1f, 0x6f, 0xeb),
    .onAccent = QColor(0xff, 0xff, 0xff),
    .alarm = QColor(0xc0, 0x26, 0x26),
    .handle = QColor(0xc3, 0xc9, 0xd1),
};

constexpr desklook::Colours Dark = {
    .desk = QColor(0x1b, 0x1e, 0x23),
    .mat = QColor(0x15, 0x18, 0x1c),
    .panel = QColor(0x25, 0x29, 0x30),
    .panelEdge = QColor(0x3a, 0x40, 0x49),
    .button = QColor(0x30, 0x35, 0x3d),
    .buttonHover = QColor(0x39, 0x3f, 0x48),
    .buttonPressed = QColor(0x1f, 0x23, 0x28),
    .text = QColor(0xe8, 0xeb, 0xef),
    .quietText = QColor(0xa3, 0xad, 0xb9),
    .faintText = QColor(0x6a, 0x73, 0x7f),
    .accent = QColor(0x6a, 0xa6, 0xff),
    .onAccent = QColor(0x10, 0x14, 0x1a),
    .alarm = QColor(0xff, 0x8a, 0x80),
    .handle = QColor(0x52, 0x5a, 0x65),
};

const desklook::Colours*& current()
{
    static const desklook::Colours* colours = &Light;
    return colours;
}

} // namespace

namespace desklook {

const Colours& colours()
{
    return *current();
}

bool isDark()
{
    return current() == &Dark;
}

bool isDesktopDark()
{
    const QPalette palette = QApplication::palette();
    return palette.color(QPalette::Window).lightness()
           < palette.color(QPalette::WindowText).lightness();
}

void apply(bool dark)
{
    current() = dark ? &Dark : &Light;
    const Colours& now = colours();
    if (QApplication::style()->name() != QLatin1String("fusion"))
        QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QPalette palette(now.desk);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText})
        palette.setColor(role, now.text);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, now.faintText);
    palette.setColor(QPalette::Base, now.panel);
    palette.setColor(QPalette::AlternateBase, now.button);
    palette.setColor(QPalette::Button, now.button);
    palette.setColor(QPalette::ToolTipBase, now.panel);
    palette.setColor(QPalette::PlaceholderText, now.quietText);
    palette.setColor(QPalette::Highlight, now.accent);
    palette.setColor(QPalette::HighlightedText, now.onAccent);
    palette.setColor(QPalette::Link, now.accent);
    QApplication::setPalette(palette);
}

QString styleSheet()
{
    const Colours& now = colours();
    const QString sheet = QStringLiteral(
        "DeskWindow { background: @desk; color: @text; }"
        "QWidget#card { background: @panel; border: 1px solid @edge; border-radius: 12px; }"
        "QPushButton { background: @button; border: 1px solid @edge; border-radius: 7px;"
        " padding: 6px 10px; color: @text; }"
        "QPushButton:hover { background: @hover; }"
        "QPushButton:pressed { background: @pressed; }"
        "QPushButton:checked { background: @accent; color: @onAccent; }"
        "QPushButton:focus { border: 2px solid @accent; padding: 5px 9px; }"
        "QPushButton:checked:focus { border: 2px solid @text; }"
        "QPushButton:disabled { color: @faint; }"
        "QLabel#quiet { color: @quiet; }"
        "QLabel#status { color: @text; font-weight: 600; }"
        "QLabel#status[alarm=\"true\"] { color: @alarm; }"
        "QListWidget, QPlainTextEdit { border: 0; background: @panel; color: @text;"
        " font-size: 12px; border-radius: 6px; padding: 4px 2px; }"
        "QListWidget:focus, QPlainTextEdit:focus { border: 1px solid @accent; }"
        "PageView { background: @panel; }"
        "QScrollArea, QScrollArea > QWidget > QWidget { background: transparent; border: 0; }"
        "QCheckBox::indicator:unchecked { border: 1px solid @quiet; background: @panel;"
        " border-radius: 3px; width: 12px; height: 12px; }"
        "QSlider::groove:horizontal { height: 4px; border-radius: 2px; background: @edge; }"
        "QSlider::sub-page:horizontal { border-radius: 2px; background: @accent; }"
        "QSlider::handle:horizontal { width: 14px; height: 14px; margin: -5px 0;"
        " border-radius: 7px; background: @accent; border: 0; }"
        "QSlider::handle:horizontal:focus { border: 2px solid @text; width: 10px;"
        " height: 10px; }"
        "QTabWidget::pane { border: 1px solid @edge; border-radius: 6px; top: -1px; }"
        "QTabBar::tab { padding: 5px 12px; border: 1px solid transparent; color: @quiet; }"
        "QTabBar::tab:selected { color: @text; border-bottom: 2px solid @accent; }"
        "QTabBar::tab:focus { border: 1px solid @accent; border-radius: 4px; }"
        "QAbstractScrollArea::corner { background: transparent; border: 0; }"
        "QScrollBar { background: transparent; margin: 2px; }"
        "QScrollBar:vertical { width: 10px; }"
        "QScrollBar:horizontal { height: 10px; }"
        "QScrollBar::handle { background: @handle; border-radius: 3px; }"
        "QScrollBar::handle:vertical { min-height: 30px; }"
        "QScrollBar::handle:horizontal { min-width: 30px; }"
        "QScrollBar::handle:hover { background: @quiet; }"
        "QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }"
        "QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }");
    QString result = sheet;
    const std::pair<const char*, QColor> names[] = {{"@desk", now.desk},
                                                    {"@text", now.text},
                                                    {"@panel", now.panel},
                                                    {"@edge", now.panelEdge},
                                                    {"@button", now.button},
                                                    {"@hover", now.buttonHover},
                                                    {"@pressed", now.buttonPressed},
                                                    {"@accent", now.accent},
                                                    {"@onAccent", now.onAccent},
                                                    {"@faint", now.faintText},
                                                    {"@quiet", now.quietText},
                                                    {"@alarm", now.alarm},
                                                    {"@handle", now.handle}};
    for (const auto& [name, colour] : names)
        result.replace(QLatin1String(name), colour.name());
    return result;
}

} // namespace desklook
