#include "tests/flows/scenarios/screentext.h"

#include "app/widgetchange.h"
#include "desk/scriptwords.h"
#include "dict/dictscanedit.h"
#include "dict/dictswitch.h"
#include "editor/myedit.h"
#include "tests/flows/scenarios/scenario.h"
#include "widgets/messagedialog.h"
#include "widgets/sandglass.h"
#include "widgets/spinitems.h"
#include "widgets/talkingmenu.h"
#include "widgets/yesnoselect.h"

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
    screen.kind = QLatin1String(editor.renameFlag() ? "input" : "editor");
    screen.fields[QStringLiteral("text")] = {editor.documentText()};
    screen.fields[QStringLiteral("cursor")] = {QString::number(editor.getCurPosition())};
    const QList<QTextEdit::ExtraSelection> marks = editor.extraSelections();
    if (!marks.isEmpty())
        screen.fields[QStringLiteral("word")] = {marks.first().cursor.selectedText()};
}

void describeTranslation(const DictScanEdit& shown, ScreenText& screen)
{
    screen.kind = QStringLiteral("translate");
    const auto* const line = shown.findChild<QTextEdit*>(QStringLiteral("editScan"));
    screen.fields[QStringLiteral("text")] = {line ? line->toPlainText() : QString()};
    screen.fields[QStringLiteral("word")] = {shown.selectedWord()};
    screen.fields[QStringLiteral("trans")] = {shown.shownTranslation()};
    if (shown.resultCount() > 0) {
        screen.fields[QStringLiteral("place")] = {
            QStringLiteral("%1/%2").arg(shown.getCurIndex() + 1).arg(shown.resultCount())};
    }
}

// Rows of a settings page as they are seen, "Speed 6", or the choices of a question.
QStringList visibleRows(const QWidget& widget, QStringList& selected)
{
    QStringList rows;
    for (const auto* row : widget.findChildren<SpinItems*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (row->isHidden())
            continue;
        rows.append((row->getText1().trimmed() + u' ' + row->getCurItem()).trimmed());
        if (row->isSelected())
            selected.append(rows.last());
    }
    return rows;
}

void describeQuestion(const YesnoSelect& question, ScreenText& screen)
{
    QStringList choice;
    visibleRows(question, choice);
    screen.kind = QStringLiteral("question");
    screen.fields[QStringLiteral("text")] = {question.msgText()};
    screen.fields[QStringLiteral("choice")] = choice;
}

// False when the widget has no rows.
bool describePage(const QWidget& page, ScreenText& screen)
{
    QStringList current;
    const QStringList rows = visibleRows(page, current);
    if (rows.isEmpty())
        return false;
    screen.kind = QStringLiteral("page");
    screen.fields[QStringLiteral("rows")] = rows;
    screen.fields[QStringLiteral("current")] = current;
    return true;
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
    } else if (const auto* const question = qobject_cast<const YesnoSelect*>(&widget)) {
        describeQuestion(*question, screen);
    } else if (const auto* const shown = qobject_cast<const DictScanEdit*>(&widget)) {
        describeTranslation(*shown, screen);
    } else if (const auto* const selection = qobject_cast<const DictSwitch*>(&widget)) {
        screen.kind = QStringLiteral("selection");
        screen.fields[QStringLiteral("text")] = {selection->spokenText()};
    } else if (!describePage(widget, screen)) {
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
