#ifndef PAGELOADER_H
#define PAGELOADER_H

#include "desk/printedpage.h"

#include <QFutureWatcher>
#include <QObject>
#include <QStringList>

/* Where a page comes from. */
struct PageSource
{
    enum class Kind {
        Sample, // one of the desk's own pages, by its name
        File,   // a picture (png, jpg, ...) or a PDF file
        Text    // a text file in UTF-8, to be set in type
    };
    Kind kind = Kind::Sample;
    QString name;     // of the sample, or the path of the file
    QString language; // of a text file, two letters
    int pdfPage = 0;
    double pictureDpi = 0.0; // 0: 300
};

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

    /* Names of the sample pages: "english", "german", "chinese". */
    static QStringList samples();

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
    QFutureWatcher<Result> m_watcher;
};

#endif
