#ifndef WORKERSFIXTURE_H
#define WORKERSFIXTURE_H

#include "tests/fakes/testroot.h"

#include <QObject>
#include <memory>

/* What the tests of the workers share: scripted engines, a player, and fresh settings. */
class WorkersFixture : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

protected:
    std::unique_ptr<TestRoot> m_root;
};

#endif
