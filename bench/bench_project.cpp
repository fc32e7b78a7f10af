// SPDX-License-Identifier: MIT
// Saving and loading the benchmark design (50 screens, 10,000 objects) through the project
// jobs, next to the floor measured on the same bytes: the JSON documents serialised and
// parsed with QJsonDocument alone, and deflated at level 6 and inflated with zlib alone.
#include "BenchReport.h"
#include "BenchScene.h"

#include "data/DataLoadJob.h"
#include "data/DataSaveJob.h"
#include "data/DataState.h"
#include "events/EventBus.h"
#include "scene/SceneManager.h"
#include "services/GlobalState.h"
#include "services/ProgressMonitor.h"
#include "support/TestScene.h"

#include <QApplication>
#include <QFileInfo>
#include <QJsonDocument>
#include <QTemporaryDir>

#include <zlib.h>

#include <vector>

using namespace TES;

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    Bench::BenchReport const report(5);
    QTemporaryDir folder;
    QString const path = folder.filePath("design.zip");

    // The bus stays off, as during a load: nothing here is announced.
    new EventBus();
    new GlobalState();
    new SceneManager();
    Test::TestScene::registerFactories();
    int const objects = Bench::BenchScene::AddDesign().size();
    std::printf("design: %d objects on %u screens\n", objects, SceneManager::i().screenCount());

    // Progress reports go nowhere: there is no dialog to move.
    ProgressMonitor monitor(nullptr);
    double const save = report.medianNanoseconds([&] {
        DataSaveJob job(path, &monitor);
        job.setProgressMonitor(&monitor);
        job.run();
        return qint64(-1);
    });
    qint64 const archiveBytes = QFileInfo(path).size();

    double const load = report.medianNanoseconds([&] {
        SceneManager::i().reset();
        QElapsedTimer timer;
        timer.start();
        DataLoadJob job(path, &monitor);
        job.setProgressMonitor(&monitor);
        job.run();
        return timer.nsecsElapsed();
    });
    if (SceneManager::i().objectList().size() != objects)
        std::printf("warning: the load gave %d objects\n",
                    int(SceneManager::i().objectList().size()));

    // The floor, on the very files of the archive.
    DataState state;
    state.read(path);
    std::vector<QByteArray> texts;
    std::vector<QJsonDocument> documents;
    qint64 jsonBytes = 0;
    for (QString const &name : state.fileNames()) {
        texts.push_back(
            QByteArray(state.getFileData(name).constData(), state.getFileData(name).size()));
        documents.push_back(QJsonDocument::fromJson(texts.back()));
        jsonBytes += texts.back().size();
    }

    double const serialise = report.medianNanoseconds([&] {
        qint64 total = 0;
        for (QJsonDocument const &document : documents)
            total += document.toJson(QJsonDocument::Indented).size();
        return qint64(total > 0 ? -1 : 0);
    });
    double const parse = report.medianNanoseconds([&] {
        int valid = 0;
        for (QByteArray const &text : texts)
            valid += !QJsonDocument::fromJson(text).isNull();
        return qint64(valid > 0 ? -1 : 0);
    });

    std::vector<std::vector<Bytef>> deflated(texts.size());
    double const deflate = report.medianNanoseconds([&] {
        for (size_t index = 0; index < texts.size(); ++index) {
            uLongf size = compressBound(static_cast<uLong>(texts[index].size()));
            deflated[index].resize(size);
            compress2(deflated[index].data(), &size,
                      reinterpret_cast<Bytef const *>(texts[index].constData()),
                      static_cast<uLong>(texts[index].size()), 6);
            deflated[index].resize(size);
        }
        return qint64(-1);
    });
    double const inflate = report.medianNanoseconds([&] {
        std::vector<Bytef> out;
        for (size_t index = 0; index < texts.size(); ++index) {
            uLongf size = static_cast<uLongf>(texts[index].size());
            out.resize(size + 1);
            uncompress(out.data(), &size, deflated[index].data(),
                       static_cast<uLong>(deflated[index].size()));
        }
        return qint64(-1);
    });

    report.print("project.save", save / 1e6, "ms");
    report.print("project.load", load / 1e6, "ms");
    Bench::BenchReport::PrintValue("project.archive_size", archiveBytes / 1024.0, "KiB");
    Bench::BenchReport::PrintValue("project.json_size", jsonBytes / 1024.0, "KiB");
    report.print("floor.json_serialise", serialise / 1e6, "ms");
    report.print("floor.json_parse", parse / 1e6, "ms");
    report.print("floor.zlib_deflate_6", deflate / 1e6, "ms");
    report.print("floor.zlib_inflate", inflate / 1e6, "ms");
    report.print("ratio.save_to_floor", save / (serialise + deflate), "x");
    report.print("ratio.load_to_floor", load / (parse + inflate), "x");

    SceneManager::destroy();
    GlobalState::destroy();
    EventBus::destroy();
    return 0;
}
