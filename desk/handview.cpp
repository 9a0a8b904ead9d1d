#include "desk/handview.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSlider>
#include <cmath>

namespace {

QString told(const char* text)
{
    return QCoreApplication::translate("HandModel", text);
}

QString told(const HandModel::Trait& trait, double value)
{
    return QString::number(value, 'f', trait.decimals) + told(trait.unit);
}

} // namespace

HandView::HandView(QWidget* parent) : QScrollArea(parent), m_left(new QCheckBox(tr("L&eft hand")))
{
    auto* const content = new QWidget;
    auto* const grid = new QGridLayout(content);
    grid->setContentsMargins(10, 8, 10, 8);
    grid->setVerticalSpacing(6);
    grid->setColumnStretch(1, 1);
    for (const HandModel::Trait& trait : HandModel::traits())
        addTrait(*grid, trait);
    m_left->setToolTip(
        tr("The pen is held in the left hand: its camera looks the other way up. The pen is told, "
           "and goes by it from the next file that you open."));
    auto* const usual = new QPushButton(tr("Usual hand"));
    usual->setToolTip(tr("A steady right hand in good light"));
    usual->setAutoDefault(false);
    const int row = grid->rowCount();
    grid->addWidget(m_left, row, 0, 1, 2);
    grid->addWidget(usual, row, 1, 1, 2, Qt::AlignRight);
    auto* const note = new QLabel(
        tr("The speed is that of the desk's own swipes; a drag with the mouse has yours."));
    note->setObjectName(QStringLiteral("quiet"));
    note->setWordWrap(true);
    grid->addWidget(note, row + 1, 0, 1, 3);
    grid->setRowStretch(row + 2, 1);
    setWidget(content);
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);

    connect(m_left, &QCheckBox::toggled, this, [this](bool left) {
        m_hand.left = left;
        emit handWanted(m_hand);
    });
    connect(usual, &QPushButton::clicked, this, [this] {
        showHand(HandModel());
        emit handWanted(m_hand);
    });
    showHand(m_hand);
}

void HandView::addTrait(QGridLayout& grid, const HandModel::Trait& trait)
{
    auto* const slider = new QSlider(Qt::Horizontal);
    slider->setRange(0, int(std::lround((trait.most - trait.least) / trait.step)));
    slider->setPageStep(std::max(1, slider->maximum() / 10));
    slider->setAccessibleName(told(trait.label));
    slider->setToolTip(told(trait.hint));
    auto* const value = new QLabel;
    value->setMinimumWidth(64);
    value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    const int row = int(m_rows.size());
    auto* const label = new QLabel(told(trait.label));
    label->setToolTip(slider->toolTip());
    grid.addWidget(label, row, 0);
    grid.addWidget(slider, row, 1);
    grid.addWidget(value, row, 2);
    m_rows.push_back({&trait, slider, value});
    connect(slider, &QSlider::valueChanged, this, [this, row](int steps) {
        const Row& changed = m_rows[std::size_t(row)];
        m_hand.set(*changed.trait, changed.trait->least + steps * changed.trait->step);
        showValue(changed);
        emit handWanted(m_hand);
    });
}

void HandView::showValue(const Row& row)
{
    const QString text = told(*row.trait, m_hand.*row.trait->value);
    row.value->setText(text);
    row.slider->setAccessibleDescription(text);
}

void HandView::showHand(const HandModel& hand)
{
    m_hand = hand;
    for (const Row& row : m_rows) {
        const QSignalBlocker still(row.slider);
        const double steps = (hand.*row.trait->value - row.trait->least) / row.trait->step;
        row.slider->setValue(int(std::lround(steps)));
        showValue(row);
    }
    const QSignalBlocker still(m_left);
    m_left->setChecked(hand.left);
}
