#include "testwindow.h"

#include "desk/handmodel.h"

#include <QSignalSpy>
#include <QSlider>
#include <QTabWidget>
#include <QTest>
#include <algorithm>
#include <cmath>
#include <utility>

/* The controls of the hand, up to what reaches the scan engine of the pen. */
class TestDeskHand : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_test = std::make_unique<TestWindow>();
        m_desk = &m_test->session();
        QVERIFY(m_test->show());
    }

    void cleanup() { m_test.reset(); }

    void slidersMoveTheHand()
    {
        m_test->tabs().setCurrentIndex(2);
        auto* const speed = m_test->slider("Speed");
        QVERIFY(speed->isVisible());
        speed->setFocus();
        QTest::keyClick(speed, Qt::Key_Right);
        QCOMPARE(m_desk->hand().speedMmPerS, 160.0);
        QCOMPARE(speed->accessibleDescription(), "160 mm/s");
        QTest::keyClick(m_test->slider("Tilt"), Qt::Key_Left);
        QCOMPARE(m_desk->hand().tiltDeg, -1.0);
        m_test->button("Left hand")->click();
        QVERIFY(m_desk->hand().left);
        m_test->button("Usual hand")->click();
        QVERIFY(m_desk->hand() == HandModel());
        HandModel other;
        other.blurPx = 2.0;
        m_desk->setHand(other); // by a script
        QCOMPARE(m_test->slider("Blur")->accessibleDescription(), "2.0 px");
    }

    void slidersChangeWhatTheCameraSees_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<double>("value");
        QTest::addColumn<bool (*)(const Sight&, const Sight&)>("isRight");
        using Changed = bool (*)(const Sight& before, const Sight& now);
        const auto row = [](const char* name, double value, Changed isRight) {
            QTest::newRow(name) << name << value << isRight;
        };
        row("Shade", 90.0, [](const Sight& before, const Sight& now) {
            return now.mean < before.mean * 0.8 && now.across < before.across - 10.0;
        });
        row("Noise", 20.0, [](const Sight& before, const Sight& now) {
            return now.roughness > before.roughness + 5.0;
        });
        row("Blur", 2.5, [](const Sight& before, const Sight& now) {
            return now.roughness < before.roughness * 0.7;
        });
        row("Tilt", 20.0, [](const Sight& before, const Sight& now) {
            return std::abs(before.down) < 1.0 && std::abs(now.down) > 3.0;
        });
        row("Wobble", 1.0, [](const Sight& before, const Sight& now) {
            return before.sway < 0.001 && now.sway > 0.1;
        });
        row("Speed", 50.0,
            [](const Sight& before, const Sight& now) { return now.frames > before.frames * 4; });
    }

    void slidersChangeWhatTheCameraSees()
    {
        QFETCH(QString, name);
        QFETCH(double, value);
        using Changed = bool (*)(const Sight&, const Sight&);
        QFETCH(Changed, isRight);
        QVERIFY(layStripes());
        m_test->tabs().setCurrentIndex(2);
        for (const char* each : {"Wobble", "Shade", "Noise", "Blur"})
            QVERIFY(setSlider(each, 0.0));
        QVERIFY(setSlider("Speed", 400.0));
        const Sight before = swipe();
        QVERIFY(setSlider(name, value));
        const Sight now = swipe();
        QVERIFY2(isRight(before, now),
                 qPrintable(QString("%1 to %2").arg(before.told(), now.told())));
    }

    void theLeftHandTurnsThePicture()
    {
        QVERIFY(layStripes());
        const Sight right = swipe();
        m_test->button("Left hand")->click();
        const Sight left = swipe();
        QVERIFY2(right.across > 5.0 && left.across < -5.0, qPrintable(left.told()));
    }

private:
    /* What "testpen" tells of the last frame of a swipe, and how the hand moved. */
    struct Sight
    {
        double mean = 0.0;
        double across = 0.0;
        double down = 0.0;
        double roughness = 0.0;
        double sway = 0.0;
        int frames = 0;

        QString told() const
        {
            return QString("mean %1, across %2, down %3, roughness %4, sway %5, %6 frames")
                .arg(mean)
                .arg(across)
                .arg(down)
                .arg(roughness)
                .arg(sway)
                .arg(frames);
        }
    };

    /* A page that grows lighter to the right, with upright stripes, under a pen that is on. */
    bool layStripes()
    {
        constexpr int Stripe = 3;
        QImage picture(720, 480, QImage::Format_Grayscale8);
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x)
                picture.scanLine(y)[x] = uchar(40 + x / 4 + (x / Stripe % 2 == 0 ? 0 : 30));
        }
        const QString path = m_test->path("stripes.png");
        return picture.save(path) && m_test->startPen()
               && QTest::qWaitFor([this] { return m_desk->link().isCameraOn(); }, LongMs)
               && m_test->layPage(PageLoader::named(path));
    }

    bool setSlider(const QString& name, double value)
    {
        const HandModel::Trait* const trait = HandModel::trait(name.toLower());
        QSlider* const slider = m_test->slider(name);
        if (!trait || !slider)
            return false;
        slider->setValue(int(std::lround((value - trait->least) / trait->step)));
        return m_desk->hand().*trait->value == value;
    }

    Sight swipe()
    {
        QSignalSpy reported(m_desk, &DeskSession::swipeReported);
        QSignalSpy looks(m_desk, &DeskSession::swipeLooksAt);
        if (!m_desk->swipe({20.0, 20.0}, {40.0, 20.0}) || !reported.wait(20000)
            || !QTest::qWaitFor([this] { return !m_desk->isSwiping(); }, LongMs))
            return {};
        const SwipeReport report = m_desk->swipeReports().constLast();
        const QStringList numbers = report.reason.split(' ');
        Sight sight;
        sight.frames = int(report.frames);
        if (numbers.size() != 4)
            return sight;
        sight.mean = numbers[0].toDouble();
        sight.across = numbers[1].toDouble();
        sight.down = numbers[2].toDouble();
        sight.roughness = numbers[3].toDouble();
        double least = 20.0;
        double most = 20.0;
        for (const QList<QVariant>& look : std::as_const(looks)) {
            least = std::min(least, look[0].toPointF().y());
            most = std::max(most, look[0].toPointF().y());
        }
        sight.sway = most - least;
        return sight;
    }

    std::unique_ptr<TestWindow> m_test;
    DeskSession* m_desk = nullptr;
};

QTEST_MAIN(TestDeskHand)
#include "tst_deskhand.moc"
