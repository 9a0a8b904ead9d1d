#include "bench/recognizer.h"

#include <tesseract/baseapi.h>

#include <algorithm>
#include <cstdlib>
#include <numeric>
#include <vector>

Recognizer::Recognizer(const QString& model) : m_api(std::make_unique<tesseract::TessBaseAPI>())
{
    if (m_api->Init(nullptr, model.toUtf8().constData(), tesseract::OEM_LSTM_ONLY) != 0) {
        qCritical("Tesseract's model %s is missing", qPrintable(model));
        std::exit(1);
    }
    m_api->SetPageSegMode(tesseract::PSM_SINGLE_LINE);
}

Recognizer::~Recognizer() = default;

QString Recognizer::read(const unsigned char* pixels, int width, int height, int bytesPerRow)
{
    m_api->SetImage(pixels, width, height, 1, bytesPerRow);
    m_api->SetSourceResolution(300);
    const std::unique_ptr<char[]> text(m_api->GetUTF8Text());
    return QString::fromUtf8(text.get());
}

QString comparable(const QString& text, bool withoutBlanks)
{
    QString result = text.simplified();
    for (const char16_t quote : {u'‘', u'’', u'‚', u'`', u'´'})
        result.replace(QChar(quote), QLatin1Char('\''));
    for (const char16_t quote : {u'“', u'”', u'„'})
        result.replace(QChar(quote), QLatin1Char('"'));
    result.replace(QLatin1String("''"), QLatin1String("\""));
    result.replace(QLatin1String(",,"), QLatin1String("\""));
    if (withoutBlanks) {
        result.remove(QLatin1Char(' '));
        result.replace(QLatin1Char(','), QChar(u'，'));
    }
    return result;
}

int editDistance(const QString& read, const QString& printed)
{
    std::vector<int> row(static_cast<std::size_t>(printed.size()) + 1);
    std::iota(row.begin(), row.end(), 0);
    for (int i = 1; i <= read.size(); ++i) {
        int diagonal = row[0];
        row[0] = i;
        for (int j = 1; j <= printed.size(); ++j) {
            const int changed = diagonal + (read[i - 1] == printed[j - 1] ? 0 : 1);
            diagonal = row[j];
            row[j] = std::min({changed, row[j] + 1, row[j - 1] + 1});
        }
    }
    return row.back();
}
