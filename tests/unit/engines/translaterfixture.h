#ifndef TRANSLATERFIXTURE_H
#define TRANSLATERFIXTURE_H

#include "engines/translater.h"
#include "platform/zembra_dic.h"
#include "tests/fakes/fakedic.h"
#include "tests/fakes/testroot.h"

#include <memory>

/* What the tests of the translater share: a scripted engine without dictionaries, and what a word
 * is looked up into, made anew for each test function. */
class TranslaterFixture : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

protected:
    static constexpr int English = 101;
    static constexpr int French = 103;

    /* A dictionary that answers one word. */
    static FakeDic::Dictionary dictionary(const std::u16string& word,
                                          std::vector<FakeDic::Entry> entries);
    /* One that has a name only. */
    static FakeDic::Dictionary named(std::u16string name);

    int lookUp(const QString& word);

    QVector<_stTransItem> m_items;
    bool m_found = true;
    tagWordPropertyIfo m_property;
    std::unique_ptr<TestRoot> m_root;
};

#endif
