#include "dict/dictswitch.h"

#include "app/widgetchange.h"
#include "dict/dictlist.h"
#include "engines/translater.h"
#include "platform/devicepaths.h"
#include "store/configreader.h"
#include "store/languagemanager.h"
#include "widgets/messagedialog.h"
#include "widgets/painting.h"
#include "widgets/scanbusy.h"
#include "widgets/spinitems.h"

#include <QKeyEvent>
#include <QPainter>
#include <QPointer>
#include <QSettings>
#include <utility>

namespace {

constexpr int RowTop = 18; // below the title line
// Chinese characters fill their line to its edges: the frame keeps away from them.
constexpr QRect ListPlace(0, 42, painting::ScreenWidth, 20);
constexpr QRect ListPlaceChinese(0, 41, painting::ScreenWidth, 23);

constexpr int Chinese = 1;
constexpr int ChosenByUser = 1;
constexpr int WarningMilliseconds = 4000;

const QString Between = QStringLiteral(". ");

// Marks beside the pair row: Left and Right lead to other pairs.
void drawSideMarks(QPainter& painter, const QRect& row)
{
    constexpr int Columns = 4;
    const int middle = row.center().y();
    const int left = row.right() + 1;
    const int right = painting::ScreenWidth - 1;
    for (int i = 0; i < Columns; ++i) {
        painter.drawLine(left + i, middle - i, left + i, middle + i);
        painter.drawLine(right - i, middle - i, right - i, middle + i);
    }
}

// The settings file itself is asked: the launcher writes there.
bool interfaceIsChinese()
{
    const QSettings settings(devicePath(QStringLiteral("/apps/config/config.ini")),
                             QSettings::IniFormat);
    const int row = settings.value(QStringLiteral("SystemSet/Lan"), 0).toInt();
    return LanguageManager::Instance()->getLanIntByID(row) == Chinese;
}

// 200 is English as well, as a voice has it.
bool matchesScanLanguage(int pairIndex)
{
    constexpr int English = 101;
    constexpr int EnglishVoice = 200;
    const int source = Translater::Instance()->getLanID(pairIndex);
    return (source == EnglishVoice ? English : source)
           == LanguageManager::Instance()->getIntByID(ConfigReader::Instance()->getLanInfo());
}

} // namespace

DictSwitch::DictSwitch(QWidget* parent) : TTSConfig(parent), m_list(new DictList(this))
{
    setObjectName(QStringLiteral("DictSwitch"));
    setWindowTitle(tr("Select dictionary"));
    setGeometry(0, 0, painting::ScreenWidth, painting::ScreenHeight);
    m_list->setFont(painting::onScreen(m_font));
    m_list->setGeometry(ListPlace);
}

void DictSwitch::addPair(const QString& name, const QVector<QString>& dicts)
{
    if (rows().isEmpty())
        addItem(new SpinItems);
    rows().first()->addItem(name);
    addDicts(dicts);
}

void DictSwitch::addDicts(const QVector<QString>& names)
{
    m_dicts.append(names);
    if (isVisible())
        showPage();
}

int DictSwitch::GetDictCount() const
{
    return static_cast<int>(m_dicts.size());
}

void DictSwitch::setDictIndex(int index)
{
    if (index >= 0 && !rows().isEmpty())
        rows().first()->setCurIndex(index);
}

int DictSwitch::getSelectIndex() const
{
    const SpinItems* const row = currentRow();
    return row && row->count() > 0 ? row->getCurIndex() : -1;
}

int DictSwitch::getDictInfoIndex() const
{
    return m_list->currentIndex();
}

bool DictSwitch::setDictInfoIndex(int index)
{
    if (index < 0 || index >= m_list->count())
        return false;
    m_list->setCurrentIndex(index);
    return true;
}

bool DictSwitch::fillList()
{
    const int pair = getSelectIndex();
    const bool known = pair >= 0 && pair < m_dicts.size();
    m_list->setNames(known ? m_dicts.at(pair) : QVector<QString>());
    m_listedPair = known ? pair : -1;
    return known;
}

bool DictSwitch::reloadDictInfoIndex(int index)
{
    if (!fillList())
        return false;
    m_list->setCurrentIndex(-1);
    return setDictInfoIndex(index);
}

void DictSwitch::showPage()
{
    hideAll();
    if (SpinItems* const row = currentRow()) {
        row->setTextFont(m_font);
        row->setEnabled(true);
        row->setSelect(false);
        row->move(0, RowTop);
        row->show();
        m_list->setGeometry(interfaceIsChinese() ? ListPlaceChinese : ListPlace);
        if (m_listedPair != getSelectIndex() || m_list->currentIndex() < 0)
            fillList();
    }
    update();
}

void DictSwitch::selectChange(int pairIndex, int dictIndex, int flag)
{
    emit selectChangedSignal(pairIndex, dictIndex, flag);
}

void DictSwitch::SetWindowState()
{
    const QPointer<DictSwitch> alive(this);
    WidgetChange::Instance()->Go2PrevWidget(this, getPrevWidget());
    if (alive)
        emit escPressed();
}

void DictSwitch::setLRFlag(bool on)
{
    m_keysEnabled = on;
}

QString DictSwitch::spokenText() const
{
    const QString dict = m_list->shownText();
    return getSelectIndex() < 0 ? dict : currentRow()->getCurItem() + Between + dict;
}

void DictSwitch::keyPressEvent(QKeyEvent* event)
{
    if (!m_keysEnabled || scanEngineIsBusy())
        return;
    switch (event->key()) {
    case Qt::Key_Left:
        stepPair(&SpinItems::movePrev);
        break;
    case Qt::Key_Right:
        stepPair(&SpinItems::moveNext);
        break;
    case Qt::Key_Up:
        m_changed = m_changed || m_list->count() > 0;
        m_list->selectPrevious();
        emit signalUp(getCurIndex(), m_list->shownText());
        break;
    case Qt::Key_Down:
        m_changed = m_changed || m_list->count() > 0;
        m_list->selectNext();
        emit signalDown(getCurIndex(), m_list->shownText());
        break;
    case Qt::Key_Escape:
        leave(Key::Escape);
        break;
    case Qt::Key_Return:
        m_confirmed = true;
        leave(Key::Enter);
        break;
    default:
        event->ignore();
    }
}

void DictSwitch::stepPair(void (SpinItems::*change)())
{
    if (getSelectIndex() >= 0) {
        m_changed = true;
        (currentRow()->*change)();
        showPage();
    }
    emit signalUp(getCurIndex(), spokenText());
}

void DictSwitch::leave(Key key)
{
    const QPointer<DictSwitch> alive(this);
    // The choice that is reported is stored in the background: what is chosen here counts.
    int pair = ConfigReader::Instance()->getLanDict();
    if (std::exchange(m_changed, false)) {
        pair = getSelectIndex();
        selectChange(pair, m_list->currentIndex(), ChosenByUser);
    }
    if (!alive)
        return;
    if (getSelectIndex() >= 0) {
        if (!matchesScanLanguage(pair))
            warnOfLanguage();
        else if (key == Key::Enter)
            emit okTriggerSignal();
    }
    // A screen that was frozen meanwhile stays: it is there again when that is over.
    if (alive && isEnabled())
        SetWindowState();
}

void DictSwitch::warnOfLanguage()
{
    const QPointer<MessageDialog> dialog = new MessageDialog(
        this, tr("Scan language does not match dictionary source language!"), WarningMilliseconds);
    dialog->exec();
    delete dialog;
}

void DictSwitch::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    m_confirmed = false;
    m_changed = false; // a choice that was taken off the screen is none
    showPage();
    emit signalShow(0, QString(), 0);
}

void DictSwitch::paintEvent(QPaintEvent*)
{
    if (rows().isEmpty())
        return;
    QPainter painter(this);
    painter.setFont(m_font);
    painter.fillRect(rect(), palette().color(QPalette::Window));
    painter.setPen(palette().color(QPalette::WindowText));
    QString place;
    if (GetDictCount() > 1) {
        place = QString::number(getSelectIndex() + 1) + u'/' + QString::number(GetDictCount());
        drawSideMarks(painter, currentRow()->geometry());
    }
    painting::drawTitle(painter, windowTitle(), place);
}
