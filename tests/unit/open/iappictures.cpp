#include "tests/unit/open/iappictures.h"

#include <opencv2/imgproc.hpp>

namespace {

const QString MiddleLine = QStringLiteral("Nobody in the village knew who built the bridge.");

} // namespace

PrintSheet threeLines(const PrintSettings& print)
{
    return PrintSheet({QStringLiteral("She kept a small notebook in the pocket of her coat."),
                       MiddleLine,
                       QStringLiteral("A quiet rain fell on the roofs and filled the barrels.")},
                      print);
}

PrintSheet blankPage()
{
    return PrintSheet({QString(), QString(60, QLatin1Char(' ')), QString()}, {});
}

cv::Mat cleanLine(const PrintSettings& print, const QString& text)
{
    PrintSettings scanned = print;
    scanned.dpi = 300;
    scanned.marginMm = 1.5;
    return matOf(PrintSheet({text.isEmpty() ? MiddleLine : text}, scanned).picture());
}

cv::Mat matOf(const QImage& picture)
{
    return cv::Mat(picture.height(), picture.width(), CV_8U,
                   const_cast<uchar*>(picture.constBits()),
                   static_cast<std::size_t>(picture.bytesPerLine()))
        .clone();
}

cv::Mat inkedPart(const cv::Mat& line)
{
    return line(cv::boundingRect(line < 128));
}

double likeness(const cv::Mat& one, const cv::Mat& other)
{
    cv::Mat a;
    cv::Mat b;
    inkedPart(one).convertTo(a, CV_32F);
    cv::resize(inkedPart(other), b, a.size(), 0, 0, cv::INTER_AREA);
    b.convertTo(b, CV_32F);
    cv::GaussianBlur(a, a, cv::Size(5, 5), 0);
    cv::GaussianBlur(b, b, cv::Size(5, 5), 0);
    a -= cv::mean(a)[0];
    b -= cv::mean(b)[0];
    return a.dot(b) / (cv::norm(a) * cv::norm(b));
}
