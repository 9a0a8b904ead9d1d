#ifndef TTSCONFIGFIXTURE_H
#define TTSCONFIGFIXTURE_H

#include "tests/unit/widgets/pagefixture.h"
#include "widgets/spinitems.h"
#include "widgets/ttsconfig.h"

/* What the tests of the settings page share: an empty page, made anew for each test function. */
class TtsConfigFixture : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

protected:
    /* What a QSignalSpy saw. */
    using Calls = QList<QVariantList>;
    using Fixture = PageFixture<TTSConfig>;

    /* Row N is labelled "RowN " and offers A, B and C. */
    SpinItems* addRow();
    void addRows(int count);

    QList<bool> visible() const;

    std::unique_ptr<Fixture> m;
    QList<SpinItems*> m_rows;
};

#endif
