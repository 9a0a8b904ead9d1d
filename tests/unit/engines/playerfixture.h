#ifndef PLAYERFIXTURE_H
#define PLAYERFIXTURE_H

#include "tests/fakes/testroot.h"

#include <QObject>
#include <memory>

/* What the tests of the player share: no player, a scripted voice, and no screen to report to. */
class PlayerFixture : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

private:
    std::unique_ptr<TestRoot> m_root;
};

#endif
