#ifndef SETTINGSFIXTURE_H
#define SETTINGSFIXTURE_H

#include "store/configreader.h"
#include "tests/fakes/testroot.h"

#include <QObject>
#include <QString>
#include <QVariant>

#include <optional>

const QString ConfigFile = QStringLiteral("/apps/config/config.ini");

/* Rows of the run root's scan-language table. */
enum Row { English = 0, French = 1, German = 2, Spanish = 3, Russian = 4, Chinese = 5, None = 6 };

/* Tests of the settings: each on a pen without a settings file. */
class SettingsFixture : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

protected:
    /* The store, made when it is not there. */
    static ConfigReader& reader() { return *ConfigReader::Instance(); }
    /* The setting as the file has it when the store is gone. */
    QVariant stored(const QString& key) const;
    /* Makes the file hold this setting alone, as another process would. */
    void setOutside(const QString& key, int value) const;

    std::optional<TestRoot> m_root;
};

#endif
