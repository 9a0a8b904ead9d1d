#include "tests/flows/scenarios/screentext.h"

#include "app/widgetchange.h"
#include "desk/scriptwords.h"
#include "editor/myedit.h"
#include "tests/flows/scenarios/scenario.h"
#include "widgets/messagedialog.h"
#include "widgets/sandglass.h"
#include "widgets/talkingmenu.h"

#include <QAction>
#include <QApplication>
#include <QLabel>

namespace {

void describeMenu(const TalkingMenu& menu, ScreenText& screen)
{
    const QList<QAction*> entries = menu.actions();
    QStringList rows;
    for (const QAction* entry : entries)
        rows.append(entry->text());
    screen.kind = QStringLiteral("menu");
    screen.fields[QStringLiteral("title")] = {menu.title()};
    if (entries.isEmpty())
        return;
    screen.fields[QStringLiteral("rows")] = rows;
    screen.fields[QStringLiteral("current")] = {rows.at(menu.getCurIndex())};
    screen.fields[QStringLiteral("place")] = {
        QStringLiteral("%1/%2").arg(menu.getCurIndex() + 1).arg(rows.size())};
}

void describeEditor(const MyEdit& editor, ScreenText& screen)
{
    screen.kind = QStringLiteral("editor");
    screen.fields[QStringLiteral("text")] = {editor.documentText()};
    screen.fields[QStringLiteral("cursor")] = {QString::number(editor.getCurPosition())};
    const QList<QTextEdit::ExtraSelection> marks = editor.extraSelections();
    if (!marks.isEmpty())
        screen.fields[QStringLiteral("word")] = {marks.first().cursor.selectedText()};
}

bool isBusy()
{
    const QWidgetList all = QApplication::allWidgets();
    return std::any_of(all.begin(), all.end(), [](const QWidget* widget) {
        return qobject_cast<const SandGlass*>(widget) && !widget->isHidden();
    });
}

void describeWidget(const QWidget& widget, ScreenText& screen)
{
    if (const auto* const dialog = qobject_cast<const MessageDialog*>(&widget)) {
        screen.kind = QStringLiteral("message");
        screen.fields[QStringLiteral("text")] = {dialog->text()};
    } else if (const auto* const menu = qobject_cast<const TalkingMenu*>(&widget)) {
        describeMenu(*menu, screen);
    } else if (const auto* const editor = qobject_cast<const MyEdit*>(&widget)) {
        describeEditor(*editor, screen);
    } else {
        screen.kind = QString::fromLatin1(widget.metaObject()->className());
    }
}

} // namespace

QString ScreenText::toString() const
{
    QString line = kind;
    for (const QString& field : Scenario::screenFields()) {
        if (!fields.contains(field))
            continue;
        line += u' ' + field;
        for (const QString& value : fields.value(field))
            line += u' ' + scriptwords::quoted(value);
    }
    return line;
}

ScreenText describeScreen()
{
    ScreenText screen;
    const QWidget* const dialog = QApplication::activeModalWidget();
    const QWidget* const widget = dialog ? dialog : WidgetChange::Instance()->getCurWidget();
    if (!widget)
        return screen;
    describeWidget(*widget, screen);
    if (!widget->isEnabled())
        screen.fields[QStringLiteral("frozen")] = {QStringLiteral("yes")};
    if (!dialog && isBusy())
        screen.fields[QStringLiteral("busy")] = {QStringLiteral("yes")};
    return screen;
}
