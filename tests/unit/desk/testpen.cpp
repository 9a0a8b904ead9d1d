/*
 * A stand-in for the pen in the tests of the desk: a window of 256 x 64 pixels that is half lit,
 * lights the other half at Down, opens a dialog at F12, says and hears a little, and ends at
 * Escape (well), F7 (code 3) or F8 (crash).
 */
#include "open/link/linkclient.h"
#include "platform/qcopchannel.h"

#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QPainter>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace {

void say(const QString& text)
{
    LinkClient speech(desklink::Role::Speech);
    speech.connectToDesk();
    const desklink::SpeechBeginHead begin = {desklink::nowUs(), 1, 101, 5, 3};
    speech.send(desklink::Kind::SpeechBegin, desklink::bytesOf(begin),
                std::as_bytes(std::span(text.utf16(), std::size_t(text.size()))));
    const int length = int(text.indexOf(QLatin1Char(' ')));
    const desklink::SpeechWordBody word = {desklink::nowUs(), 1, 0, length, 0};
    speech.send(desklink::Kind::SpeechWord, desklink::bytesOf(word));
    const desklink::SpeechEndBody end = {desklink::nowUs(), 1, 0};
    speech.send(desklink::Kind::SpeechEnd, desklink::bytesOf(end));
}

/* What a frame looks like, in words for the report of a swipe: mean grey, how much lighter the
 * right half is than the left and the lower one than the upper, and the mean step from pixel to
 * pixel. */
std::string described(const std::vector<std::byte>& body)
{
    const auto head = desklink::recordOf<desklink::FrameHead>(body);
    const int width = head ? head->width : 0;
    const int height = head ? head->height : 0;
    const int pixels = width * height;
    if (pixels == 0 || body.size() < sizeof *head + std::size_t(pixels))
        return "no frame";
    double sum = 0.0;
    double across = 0.0;
    double down = 0.0;
    double steps = 0.0;
    const auto grey = [&body](int pixel) {
        return std::to_integer<int>(body[sizeof(desklink::FrameHead) + std::size_t(pixel)]);
    };
    for (int i = 0; i < pixels; ++i) {
        const int value = grey(i);
        sum += value;
        across += i % width >= width / 2 ? value : -value;
        down += i / width >= height / 2 ? value : -value;
        steps += i % width > 0 ? std::abs(value - grey(i - 1)) : 0;
    }
    char text[100];
    std::snprintf(text, sizeof text, "%.2f %.2f %.2f %.2f", sum / pixels, 2 * across / pixels,
                  2 * down / pixels, steps / pixels);
    return text;
}

/* Takes frames until the tip is lifted, and reports how many came and what the last was like. */
void scan(LinkClient& link)
{
    LinkClient::Packet packet;
    quint32 frames = 0;
    std::string last;
    while (link.isConnected()) {
        if (!link.receive(packet, -1))
            continue;
        if (packet.kind == desklink::Kind::Frame) {
            ++frames;
            last = described(packet.body);
        }
        if (packet.kind != desklink::Kind::TipUp)
            continue;
        const desklink::SwipeResultHead head = {desklink::SwipeOutcome::Delivered, frames, 100, 40};
        link.send(desklink::Kind::SwipeResult, desklink::bytesOf(head),
                  std::as_bytes(std::span(last)));
        frames = 0;
    }
}

class Screen : public QWidget
{
public:
    Screen() : m_channel(QStringLiteral("scanprocess"))
    {
        setWindowFlags(Qt::FramelessWindowHint);
        setFixedSize(256, 64);
        connect(&m_channel, &QCopChannel::received, this,
                [](const QString& message, const QByteArray& payload) {
                    if (message == QLatin1String("execute(QString)") && payload == "stop")
                        qApp->quit();
                });
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), Qt::black);
        painter.fillRect(m_down ? 128 : 0, 0, 128, 64, Qt::white);
    }

    void keyPressEvent(QKeyEvent* event) override
    {
        const QString mainProcess = QStringLiteral("mainprocess");
        switch (event->key()) {
        case Qt::Key_Down:
            m_down = true;
            update();
            say(QStringLiteral("Second half"));
            QCopChannel::send(mainProcess, QStringLiteral("execute(QString)"), "soundyes");
            break;
        case Qt::Key_F12:
            showDialog();
            break;
        case Qt::Key_Escape:
            QCopChannel::send(mainProcess, QStringLiteral("ESC(QString)"), "escpressed");
            qApp->quit();
            break;
        case Qt::Key_F7:
            qApp->exit(3);
            break;
        case Qt::Key_F8:
            std::abort();
        default:
            break;
        }
    }

private:
    void showDialog()
    {
        m_dialog = std::make_unique<QDialog>(this, Qt::Dialog | Qt::FramelessWindowHint);
        m_dialog->setFixedSize(256, 64);
        m_dialog->setStyleSheet(QStringLiteral("background: white"));
        m_dialog->open();
    }

    QCopChannel m_channel;
    std::unique_ptr<QDialog> m_dialog;
    bool m_down = false;
};

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    LinkClient link(desklink::Role::Scan);
    link.connectToDesk();
    link.send(desklink::Kind::CameraOn);
    std::thread scanner([&link] { scan(link); });
    Screen screen;
    screen.show();
    QCopChannel::send(QStringLiteral("mainprocess"), QStringLiteral("Show(QString)"), "scan");
    std::fputs("the test pen is up\n", stderr);
    const int result = QApplication::exec();
    scanner.detach();
    std::_Exit(result);
}
