#include "desk/pagebar.h"

#include "desk/desklook.h"
#include "desk/pageloader.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QStyleOptionComboBox>
#include <QStylePainter>

namespace {

constexpr int LeastLetters = 10; // of the name of a page
constexpr int MostChooserWidth = 240;

/* A chooser that shortens the name of a page of the user's own in the middle. */
class PageChooser : public QComboBox
{
protected:
    void paintEvent(QPaintEvent*) override
    {
        QStylePainter painter(this);
        QStyleOptionComboBox option;
        initStyleOption(&option);
        const QRect field = style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                    QStyle::SC_ComboBoxEditField, this);
        const QString name = currentIndex() < 0 ? placeholderText() : currentText();
        option.currentText =
            option.fontMetrics.elidedText(name, Qt::ElideMiddle, field.width() - 2);
        painter.drawComplexControl(QStyle::CC_ComboBox, option);
        painter.drawControl(QStyle::CE_ComboBoxLabel, option);
    }
};

QPushButton* button(const QString& text, const QString& tip)
{
    auto* const result = new QPushButton(text);
    result->setToolTip(tip);
    result->setAccessibleDescription(tip);
    result->setAutoDefault(false);
    return result;
}

} // namespace

PageBar::PageBar(QWidget* parent)
    : QWidget(parent),
      m_pages(new PageChooser),
      m_sheet(new QSpinBox),
      m_ruler(new QCheckBox(tr("&Ruler"))),
      m_dark(new QCheckBox(tr("&Dark desk")))
{
    auto* const label = new QLabel(tr("&Page"));
    label->setBuddy(m_pages);
    m_pages->setAccessibleName(tr("Sample page"));
    m_pages->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_pages->setMinimumContentsLength(LeastLetters);
    m_pages->setMaximumWidth(MostChooserWidth);
    m_pages->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    for (QWidget* const field : std::initializer_list<QWidget*>{m_pages, m_sheet})
        field->setMinimumHeight(desklook::FieldHeight);
    for (const QString& sample : PageLoader::samples())
        m_pages->addItem(sample.at(0).toUpper() + sample.mid(1), sample);
    auto* const open = button(tr("&Open..."), tr("A picture or a PDF file as the page (Ctrl+O). "
                                                 "You can also drop one on the desk."));
    auto* const type = button(tr("T&ype..."), tr("A text of your own as the page (Ctrl+T)"));
    auto* const help = button(QStringLiteral("?"), tr("Keys and hints (F1)"));
    help->setAccessibleName(tr("Help"));
    m_sheet->setAccessibleName(tr("Sheet of the PDF file"));
    m_sheet->setToolTip(m_sheet->accessibleName());
    m_sheet->setPrefix(tr("Sheet "));
    m_sheet->setKeyboardTracking(false);
    m_sheet->hide();
    m_ruler->setToolTip(tr("A drag follows the line on which it began"));
    m_ruler->setChecked(true);
    m_dark->setToolTip(tr("The desk in dark colours"));

    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(4, 0, 8, 0);
    for (QWidget* const widget :
         std::initializer_list<QWidget*>{label, m_pages, open, type, m_sheet})
        row->addWidget(widget, widget == m_pages ? 2 : 0);
    row->addStretch(1);
    for (QWidget* const widget : std::initializer_list<QWidget*>{m_ruler, m_dark, help})
        row->addWidget(widget);

    connect(m_pages, &QComboBox::activated, this,
            [this] { emit pageWanted(PageLoader::named(m_pages->currentData().toString())); });
    connect(open, &QPushButton::clicked, this, &PageBar::openPage);
    connect(type, &QPushButton::clicked, this, &PageBar::typingWanted);
    connect(help, &QPushButton::clicked, this, &PageBar::helpWanted);
    connect(m_ruler, &QCheckBox::toggled, this, &PageBar::rulerChanged);
    connect(m_dark, &QCheckBox::toggled, this, &PageBar::darkChanged);
    connect(m_sheet, &QSpinBox::valueChanged, this, [this](int sheet) {
        PageSource source = m_source;
        source.pdfPage = sheet - 1;
        emit pageWanted(source);
    });
}

void PageBar::showPage(const PrintedPage& page, const PageSource& source)
{
    m_source = source;
    // A page of the user's own is named, but is not among the samples.
    m_pages->setPlaceholderText(page.name);
    m_pages->setToolTip(
        source.kind == PageSource::Kind::File
            ? source.name
            : tr("A page of print in one of the twelve languages that the pen reads"));
    m_pages->setCurrentIndex(
        source.kind == PageSource::Kind::Sample ? m_pages->findData(source.name) : -1);
    const QSignalBlocker still(m_sheet);
    m_sheet->setRange(1, page.sheets);
    m_sheet->setValue(page.sheet + 1);
    m_sheet->setSuffix(tr(" of %1").arg(page.sheets));
    m_sheet->setVisible(page.sheets > 1);
}

bool PageBar::hasRuler() const
{
    return m_ruler->isChecked();
}

void PageBar::setRuler(bool on)
{
    m_ruler->setChecked(on);
}

void PageBar::setDark(bool dark)
{
    m_dark->setChecked(dark);
}

void PageBar::openPage()
{
    auto* const dialog = new QFileDialog(window(), tr("Open a page"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setNameFilters({tr("Pages (*.png *.jpg *.jpeg *.bmp *.pdf)"), tr("All files (*)")});
    connect(dialog, &QFileDialog::fileSelected, this,
            [this](const QString& path) { emit pageWanted(PageLoader::named(path)); });
    dialog->open();
}
