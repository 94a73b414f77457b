// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

// What a user sees of the welcome screen: the picture of a screen with a window manager on it.

#include <QApplication>
#include <QElapsedTimer>
#include <QImage>
#include <QProcess>
#include <QScreen>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <chrono>
#include <csignal>
#include <cstdlib>

namespace {

/// A screen of its own in memory; none where the programs for it are missing.
class PrivateScreen
{
public:
    PrivateScreen()
    {
        for (const char* program : {"Xvfb", "openbox"})
            if (QStandardPaths::findExecutable(QLatin1String(program)).isEmpty())
                return;
        m_server.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_server.start(QStringLiteral("Xvfb"),
                       {"-displayfd", "1", "-screen", "0", "1024x768x24", "-nolisten", "tcp"});
        if (!m_server.waitForReadyRead(20000))
            return;
        m_display = ':' + m_server.readLine().trimmed();
        qputenv("DISPLAY", m_display);
        qputenv("QT_QPA_PLATFORM", "xcb");
        // Windows that come before it is ready are treated in another way.
        m_manager.start(QStringLiteral("openbox"), {"--sm-disable", "--startup", "echo ready"});
        m_manager.waitForReadyRead(20000);
    }
    ~PrivateScreen()
    {
        signalManager(SIGCONT);
        for (QProcess* process : {&m_manager, &m_server}) {
            process->terminate();
            process->waitForFinished(5000);
        }
    }
    bool isThere() const { return !m_display.isEmpty(); }

    /// Windows that come meanwhile reach the screen only afterwards.
    bool holdWindowsBack(std::chrono::milliseconds time) const
    {
        if (m_manager.processId() <= 0)
            return false;
        signalManager(SIGSTOP);
        QTimer::singleShot(time, &m_manager, [this] { signalManager(SIGCONT); });
        return true;
    }

private:
    /// Without a process its number is 0, which would be this program and its relatives.
    void signalManager(int number) const
    {
        if (m_manager.processId() > 0)
            kill(static_cast<pid_t>(m_manager.processId()), number);
    }

    QProcess m_server;
    QProcess m_manager;
    QByteArray m_display;
};

bool sameColour(QRgb one, QRgb other)
{
    return std::abs(qRed(one) - qRed(other)) < 12 && std::abs(qGreen(one) - qGreen(other)) < 12 &&
           std::abs(qBlue(one) - qBlue(other)) < 12;
}

/// Whether @p picture stands in the middle of the screen.
bool shows(const QImage& picture)
{
    const QImage screen = QGuiApplication::primaryScreen()->grabWindow(0).toImage();
    const QPoint corner = screen.rect().center() - picture.rect().center();
    for (int y = 20; y < picture.height(); y += 40)
        for (int x = 20; x < picture.width(); x += 40)
            if (!sameColour(screen.pixel(corner + QPoint(x, y)), picture.pixel(x, y)))
                return false;
    return true;
}

} // namespace

class TestWelcome : public QObject
{
    Q_OBJECT

public:
    explicit TestWelcome(const PrivateScreen& screen) : m_screen(screen) {}

private:
    const PrivateScreen& m_screen;

private slots:
    void isSeen()
    {
        if (QGuiApplication::platformName() != QStringLiteral("xcb"))
            QSKIP("There is no Xvfb with openbox here");
        const QImage picture(QStringLiteral(PELMORA_SPLASH));
        QVERIFY(!picture.isNull());
        const QTemporaryDir settings;
        QProcess program;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"), settings.path());
        program.setProcessEnvironment(environment);
        QVERIFY(m_screen.holdWindowsBack(std::chrono::milliseconds(300)));
        program.start(QStringLiteral(PELMORA_PROGRAM), {});
        QVERIFY(program.waitForStarted());

        // It stands for three seconds. A picture that is painted only at the end is not seen.
        QElapsedTimer seen;
        const bool stood = QTest::qWaitFor(
            [&] {
                if (!shows(picture))
                    seen.invalidate();
                else if (!seen.isValid())
                    seen.start();
                return seen.isValid() && seen.elapsed() > 1500;
            },
            20000);
        program.terminate();
        QVERIFY(program.waitForFinished());
        QVERIFY(stood);
    }
};

int main(int argc, char* argv[])
{
    const PrivateScreen screen;
    if (!screen.isThere())
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    TestWelcome test(screen);
    return QTest::qExec(&test, argc, argv);
}

#include "tst_welcome.moc"
