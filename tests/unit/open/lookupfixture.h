#ifndef LOOKUPFIXTURE_H
#define LOOKUPFIXTURE_H

#include "open/dic/lookup.h"
#include "tests/unit/open/dicfiles.h"

#include <QObject>
#include <QStringList>
#include <QTemporaryDir>
#include <memory>
#include <string>
#include <vector>

/* What the tests of look-ups share: one dictionary in a folder of its own, with word forms. */
class LookupFixture : public QObject
{
protected:
    std::string path(const std::string& name) const
    {
        return m_folder.path().toStdString() + "/" + name;
    }

    /* Writes files of word forms; the Hunspell ones only where there are words. */
    dic::WordFormFiles forms(const std::string& table, const std::string& affixes = {},
                             const std::string& words = {});

    /* Makes a dictionary of the pair ("deu-eng") and opens it. */
    void open(const std::string& pair, const std::vector<dicfiles::Entry>& entries,
              const dic::WordFormFiles& files = {});

    /* "word: text", and how it was found unless exactly. */
    QStringList found(const std::u16string& word);
    static QStringList describe(const std::vector<dic::Hit>& hits);

    QTemporaryDir m_folder;
    std::unique_ptr<dic::IndexShelf> m_shelf;
    std::unique_ptr<dic::Dictionary> m_dictionary;
    std::unique_ptr<dic::WordForms> m_forms;
    std::unique_ptr<dic::Lookup> m_lookup;
};

#endif
