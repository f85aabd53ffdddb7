#include "look/SystemFont.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

namespace velmora {
namespace {

/// Run by the cases below on a machine without fonts.
TEST(NoFontsChild, DISABLED_NoFontIsInstalled) {
    EXPECT_FALSE(SystemFont::isInstalled());
}

/// Which fonts there are is found out once per process, so a machine without any takes a process of its own.
void runWithoutFonts(const QString& cases) {
    const QTemporaryDir folder;
    QFile configuration(folder.filePath(QStringLiteral("fonts.conf")));
    ASSERT_TRUE(configuration.open(QIODevice::WriteOnly));
    configuration.write(
        ("<?xml version=\"1.0\"?><!DOCTYPE fontconfig SYSTEM \"fonts.dtd\"><fontconfig><dir>" +
         folder.path() + "/none</dir><cachedir>" + folder.path() + "/cache</cachedir></fontconfig>")
            .toUtf8());
    configuration.close();

    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("FONTCONFIG_FILE"), configuration.fileName());
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--gtest_also_run_disabled_tests"),
                                                            QStringLiteral("--gtest_filter=") + cases});
    ASSERT_TRUE(process.waitForFinished(30'000));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 0);
}

TEST(NoFonts, EveryStyleIsStillDrawn) {
    runWithoutFonts(
        QStringLiteral("MenuBarRenderer.EveryImageIsTwentyTwoPointsHighAtEveryRatio:"
                       "MenuBarRenderer.SquaresAreSquareWhateverTheyShow"));
}

TEST(NoFonts, ItIsNoticed) {
    EXPECT_TRUE(SystemFont::isInstalled()) << "these tests need a font";
    runWithoutFonts(QStringLiteral("NoFontsChild.DISABLED_NoFontIsInstalled"));
}

}  // namespace
}  // namespace velmora
