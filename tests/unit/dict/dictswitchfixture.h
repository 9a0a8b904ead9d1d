#ifndef DICTSWITCHFIXTURE_H
#define DICTSWITCHFIXTURE_H

#include "dict/dictlist.h"
#include "dict/dictswitch.h"
#include "tests/fakes/fakedic.h"
#include "tests/unit/engines/freshsettings.h"
#include "tests/unit/widgets/pagefixture.h"
#include "widgets/messagedialog.h"
#include "widgets/spinitems.h"

#include <QObject>
#include <QStringList>
#include <functional>
#include <memory>

using Calls = QList<QVariantList>;
using Names = QVector<QString>;

/* What the tests of the choice of a dictionary share: the screen, made anew for each test function
 * over four language pairs, and what it says and warns of. */
class DictSwitchFixture : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

protected:
    using Fixture = PageFixture<DictSwitch>;

    template <class Widget> Widget* child() const
    {
        auto* const found = m->page->findChild<Widget*>();
        if (!found)
            qFatal("the screen lacks a part");
        return found;
    }
    void addPairs();
    DictList* list() const { return child<DictList>(); }
    SpinItems* row() const { return child<SpinItems>(); }
    QStringList entries() const;
    bool eventFilter(QObject* watched, QEvent* event) override;

    std::unique_ptr<Fixture> m;
    QStringList m_said;
    QStringList m_warnings;
    std::function<void(MessageDialog*)> m_act;
};

#endif
