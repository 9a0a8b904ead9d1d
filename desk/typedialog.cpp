#include "desk/typedialog.h"

#include "desk/desklook.h"
#include "desk/pageloader.h"
#include "desk/typesetter.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFontComboBox>
#include <QFormLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int SoonMs = 250;
constexpr double HalfPoint = 0.5;

} // namespace

TypeDialog::TypeDialog(const PageSource& source, const QString& language, QWidget* parent)
    : QDialog(parent),
      m_text(new QPlainTextEdit),
      m_language(new QComboBox),
      m_family(new QFontComboBox),
      m_size(new QDoubleSpinBox)
{
    setWindowTitle(tr("A page of your own"));
    m_text->setAccessibleName(tr("Text of the page"));
    m_text->setPlaceholderText(tr("Type or paste a text; the page on the desk follows."));
    m_text->setTabChangesFocus(true);
    for (const PageLoader::Language& each : PageLoader::languages())
        m_language->addItem(each.title, each.code);
    m_size->setRange(PageSource::LeastPt, PageSource::MostPt);
    m_size->setSingleStep(HalfPoint);
    m_size->setDecimals(1);
    m_size->setSuffix(tr(" pt"));

    for (QWidget* const field : std::initializer_list<QWidget*>{m_language, m_family, m_size})
        field->setMinimumHeight(desklook::FieldHeight);
    auto* const form = new QFormLayout;
    form->addRow(tr("&Language"), m_language);
    form->addRow(tr("&Font"), m_family);
    form->addRow(tr("Si&ze"), m_size);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    auto* const column = new QVBoxLayout(this);
    column->addWidget(m_text, 1);
    column->addLayout(form);
    column->addWidget(buttons);
    begin(source, language);

    m_soon.setSingleShot(true);
    m_soon.setInterval(SoonMs);
    const auto soon = [this] { m_soon.start(); };
    connect(m_text, &QPlainTextEdit::textChanged, this, soon);
    connect(m_language, &QComboBox::currentIndexChanged, this, &TypeDialog::takeLanguage);
    connect(m_family, &QFontComboBox::currentFontChanged, this, soon);
    connect(m_size, &QDoubleSpinBox::valueChanged, this, soon);
    connect(&m_soon, &QTimer::timeout, this, [this] {
        if (!m_text->toPlainText().simplified().isEmpty())
            emit pageWanted(this->source());
    });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::close);
    resize(480, 360);
}

void TypeDialog::begin(const PageSource& source, const QString& language)
{
    const bool typed = source.kind == PageSource::Kind::Typed;
    if (typed)
        m_text->setPlainText(source.text);
    m_size->setValue(typed ? source.sizePt : PageSource().sizePt);
    m_language->setCurrentIndex(
        std::max(0, m_language->findData(typed ? source.language : language)));
    const QString family = typed ? source.family : QString();
    m_family->setCurrentFont(QFont(
        family.isEmpty() ? typesetter::familyFor(m_language->currentData().toString()) : family));
}

void TypeDialog::takeLanguage()
{
    // A language has a font that is known to have its letters.
    m_family->setCurrentFont(QFont(typesetter::familyFor(m_language->currentData().toString())));
    m_soon.start();
}

PageSource TypeDialog::source() const
{
    PageSource page;
    page.kind = PageSource::Kind::Typed;
    page.text = m_text->toPlainText();
    page.language = m_language->currentData().toString();
    page.family = m_family->currentFont().family();
    page.sizePt = m_size->value();
    return page;
}
