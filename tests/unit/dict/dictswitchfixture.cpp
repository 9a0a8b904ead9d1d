#include "tests/unit/dict/dictswitchfixture.h"

#include "engines/translater.h"
#include "widgets/announcer.h"

#include <QApplication>
#include <QPointer>

void DictSwitchFixture::init()
{
    m = std::make_unique<Fixture>();
    m->page->setPrevWidget(&m->previous);
    FakeDic::addPair(101, 104, u"English-German", {{}, {}, {}});
    FakeDic::addPair(103, 101, u"French-English", {{}, {}});
    FakeDic::addPair(200, 105, u"English-Spanish", {{}});
    FakeDic::addPair(101, 106, u"English-Italian", {});
    freshSettings();
    m_said.clear();
    m_warnings.clear();
    m_act = nullptr;
    announcer::setSpeaker([this](const QString& text) { m_said.append(text); });
    qApp->installEventFilter(this);
}

void DictSwitchFixture::cleanup()
{
    qApp->removeEventFilter(this);
    announcer::setSpeaker({});
    m.reset();
    Translater::quitFun();
}

// Ends each warning at once, after the test has acted on it.
bool DictSwitchFixture::eventFilter(QObject* watched, QEvent* event)
{
    auto* const dialog = qobject_cast<MessageDialog*>(watched);
    if (dialog && event->type() == QEvent::Show) {
        m_warnings.append(dialog->text());
        QMetaObject::invokeMethod(
            dialog,
            [this, dialog = QPointer<MessageDialog>(dialog)] {
                if (m_act)
                    m_act(dialog);
                MessageDialog* const open = dialog;
                if (!open || !open->isVisible())
                    return;
                QTimerEvent timeOut(open->timerId());
                QApplication::sendEvent(open, &timeOut);
            },
            Qt::QueuedConnection);
    }
    return false;
}

void DictSwitchFixture::addPairs()
{
    m->page->addPair(QStringLiteral("English-German"),
                     Names{QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")});
    m->page->addPair(QStringLiteral("French-English"),
                     Names{QStringLiteral("D"), QStringLiteral("E")});
    m->page->addPair(QStringLiteral("English-Spanish"), Names{QStringLiteral("F")});
    m->page->addPair(QStringLiteral("English-Italian"), Names{});
}

QStringList DictSwitchFixture::entries() const
{
    QStringList texts;
    for (int i = 0; i < list()->count(); ++i)
        texts.append(list()->itemText(i));
    return texts;
}
