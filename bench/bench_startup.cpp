// SPDX-License-Identifier: MIT
// Start-up: from starting the process to the main window shown, with the test scene plug-in,
// under the offscreen platform. The plug-in prints "shown" when the window is up and exits.
#include "BenchReport.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    TES::Bench::BenchReport const report(7);

    // The application finds its plug-ins in "plugins" beside itself.
    QString const pluginDir = QStringLiteral(TES_APPLICATION_DIR "/plugins/scene");
    QString const link = pluginDir + "/libfixture_scene.so";
    QDir().mkpath(pluginDir);
    QFile::remove(link);
    if (!QFile::link(QStringLiteral(TES_SCENE_PLUGIN), link)) {
        std::fprintf(stderr, "cannot place the plug-in at %s\n", qPrintable(link));
        return 1;
    }

    QTemporaryDir home;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_QPA_PLATFORM", "offscreen");
    environment.insert("XDG_CONFIG_HOME", home.path());

    bool failed = false;
    double const startup = report.medianNanoseconds([&] {
        QProcess process;
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory(home.path());
        QElapsedTimer timer;
        timer.start();
        process.start(QStringLiteral(TES_APPLICATION_DIR "/tessera"), {"-quit_when_shown=1"});
        qint64 shown = -1;
        while (shown < 0 && process.waitForReadyRead(30000)) {
            if (process.readAllStandardOutput().contains("shown"))
                shown = timer.nsecsElapsed();
        }
        process.waitForFinished(30000);
        failed = failed || shown < 0;
        return shown;
    });

    QFile::remove(link);
    QDir(TES_APPLICATION_DIR "/plugins").removeRecursively();
    if (failed) {
        std::fprintf(stderr, "the application did not report its window\n");
        return 1;
    }
    report.print("startup.window_shown", startup / 1e6, "ms");
    return 0;
}
