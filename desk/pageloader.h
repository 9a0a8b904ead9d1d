#ifndef PAGELOADER_H
#define PAGELOADER_H

#include "desk/pagesource.h"
#include "desk/printedpage.h"

#include <QFutureWatcher>
#include <QObject>
#include <QStringList>

/*
 * Makes printed pages from samples, pictures, PDF and text files on threads of its own. The last
 * page asked for wins.
 */
class PageLoader : public QObject
{
    Q_OBJECT

public:
    explicit PageLoader(QObject* parent = nullptr);
    ~PageLoader() override;

    /* Begins to load; loaded() or failed() follows, unless another call comes first. */
    void load(const PageSource& source);
    bool isLoading() const { return m_watcher.isRunning(); }

    /* What was asked for last. */
    const PageSource& source() const { return m_source; }

    /* Names of the sample pages, one in each of the twelve languages that the pen reads: "english",
     * "german", ... */
    static QStringList samples();

    /* Those languages, in the order of the samples: two letters, and the name in English. */
    struct Language
    {
        QString code;
        QString title;
    };
    static QVector<Language> languages();

    /* Whether a file's name says that it can be a page: a picture or a PDF file. */
    static bool canBePage(const QString& path);

    /* A page named by a user: a sample, or else a file. */
    static PageSource named(const QString& name);

    /* What loading comes to; waits for it. `error` is empty on success. */
    struct Result
    {
        PrintedPage page;
        QString error;
    };
    static Result loadNow(const PageSource& source);

signals:
    void loaded(const PrintedPage& page);
    void failed(const QString& error);

private:
    PageSource m_source;
    QFutureWatcher<Result> m_watcher;
};

#endif
