#include "desk/scriptview.h"

#include "desk/sessionrecorder.h"

#include <QFileDialog>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>

ScriptView::ScriptView(const SessionRecorder& recorder, QWidget* parent)
    : QWidget(parent), m_recorder(recorder), m_text(new QPlainTextEdit), m_play(new QPushButton)
{
    m_text->setReadOnly(true);
    m_text->setTabChangesFocus(true);
    m_text->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_text->setMinimumHeight(40);
    m_text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_text->setAccessibleName(tr("What was done on the desk, as a script"));
    auto* const save = new QPushButton(tr("Save as..."));
    save->setToolTip(tr("Writes what was done since the start to a script (Ctrl+S)"));
    for (QPushButton* const button : {save, m_play}) {
        button->setAutoDefault(false);
        button->setAccessibleDescription(button->toolTip());
    }

    auto* const buttons = new QHBoxLayout;
    buttons->addWidget(save);
    buttons->addWidget(m_play);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(6, 2, 6, 6);
    column->setSpacing(6);
    column->addWidget(m_text, 1);
    column->addLayout(buttons);

    connect(save, &QPushButton::clicked, this, &ScriptView::save);
    connect(m_play, &QPushButton::clicked, this, [this] {
        if (m_playing)
            emit stopWanted();
        else
            open();
    });
    connect(&recorder, &SessionRecorder::changed, this, &ScriptView::showScript);
    setPlaying(false);
    showScript();
}

void ScriptView::showScript()
{
    const QScrollBar* const bar = m_text->verticalScrollBar();
    const bool atEnd = bar->value() == bar->maximum();
    m_text->setPlainText(m_recorder.script());
    if (atEnd)
        m_text->verticalScrollBar()->setValue(m_text->verticalScrollBar()->maximum());
    m_text->horizontalScrollBar()->setValue(0);
}

void ScriptView::setPlaying(bool playing)
{
    m_playing = playing;
    m_play->setText(playing ? tr("Stop playing") : tr("Play..."));
    m_play->setToolTip(playing ? tr("Ends the script that is being played")
                               : tr("Starts the pen anew and plays a script with it (Ctrl+R)"));
}

void ScriptView::save()
{
    auto* const dialog = new QFileDialog(window(), tr("Save what was done as a script"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setNameFilter(tr("Desk scripts (*.desk)"));
    dialog->setDefaultSuffix(QStringLiteral("desk"));
    connect(dialog, &QFileDialog::fileSelected, this, [this](const QString& path) {
        const QString error = m_recorder.save(path);
        emit told(error.isEmpty() ? tr("Saved as %1").arg(path) : error, !error.isEmpty());
    });
    dialog->open();
}

void ScriptView::open()
{
    auto* const dialog = new QFileDialog(window(), tr("Play a script"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setNameFilters({tr("Desk scripts (*.desk)"), tr("All files (*)")});
    connect(dialog, &QFileDialog::fileSelected, this, &ScriptView::playWanted);
    dialog->open();
}
