#include "tests/unit/widgets/ttsconfigfixture.h"

void TtsConfigFixture::init()
{
    m = std::make_unique<Fixture>();
    m_rows.clear();
}

void TtsConfigFixture::cleanup()
{
    m.reset();
}

SpinItems* TtsConfigFixture::addRow()
{
    auto* row = new SpinItems;
    row->setText1(QStringLiteral("Row%1 ").arg(m_rows.size()));
    for (const char* value : {"A", "B", "C"})
        row->addItem(QLatin1String(value));
    m->page->addItem(row);
    m_rows.append(row);
    return row;
}

void TtsConfigFixture::addRows(int count)
{
    for (int i = 0; i < count; ++i)
        addRow();
}

QList<bool> TtsConfigFixture::visible() const
{
    QList<bool> shown;
    for (const SpinItems* row : m_rows)
        shown.append(row->isVisible());
    return shown;
}
