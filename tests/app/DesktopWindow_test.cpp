// The window's desktop side, headless: command line, File > Open, recents, Copy Results, status.
#include "BkgndColorView.h"
#include "QColor+QVExtras.h"
#include "app_window_fixture.h"
#include "qt_csv.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QRegularExpression>
#include <QStatusBar>
#include <QStyle>
#include <QTemporaryDir>
#include <QTimer>

namespace {

const QString kSamples = QStringLiteral(CXF_SOURCE_DIR "/data/samples/");

TEST(CommandLine, AnswersHelpVersionAndTooManyDocumentsBeforeAnyWindow)
{
    // Arguments, platform (help and version need no display), exit status, stdout or stderr.
    const char *rows[][4] = {{"--help", "xcb", "0", "--version.*reference"},
                             {"-v", "xcb", "0", "^CxF Compare \\d+\\.\\d+"},
                             {"a b c", "offscreen", "64", "too many documents.*\u201cc\u201d"}};
    for (const auto &row : rows) {
        QProcess app;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.remove(QStringLiteral("DISPLAY"));
        env.insert(QStringLiteral("QT_QPA_PLATFORM"), QLatin1String(row[1]));
        app.setProcessEnvironment(env);
        const int status = QByteArray(row[2]).toInt();
        app.setReadChannel(status == 0 ? QProcess::StandardOutput : QProcess::StandardError);
        app.start(QStringLiteral(CXF_COMPARE_EXECUTABLE), QString::fromUtf8(row[0]).split(u' '));
        ASSERT_TRUE(app.waitForFinished(20000));
        const QString out = QString::fromUtf8(app.readAll());
        EXPECT_EQ(app.exitCode(), status) << out.toStdString();
        EXPECT_TRUE(out.contains(QRegularExpression(
            QString::fromUtf8(row[3]), QRegularExpression::DotMatchesEverythingOption)))
            << out.toStdString();
    }
}

TEST(HueTurn, NamesTheAxisAheadOfTheMiddleOfTheTurn)
{
    const QStringList names{u"none"_qs, u"redder"_qs, u"yellower"_qs, u"greener"_qs, u"bluer"_qs};
    for (const QStringList &row : qtCsvRows("reference/hue_turns.csv"))
        EXPECT_EQ(int(hueTurnFor(row[0].toDouble(), row[1].toDouble())), names.indexOf(row[2]))
            << row.join(u',').toStdString();
}

using DesktopWindowTest = AppWindowTest;

TEST_F(DesktopWindowTest, OpensThroughTheFileDialogAndRemembersFolderAndDocuments)
{
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QString shownFolder;
    const auto answerDialog = [&](const QString &path) {
        QTimer::singleShot(0, [&shownFolder, path] {
            auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            shownFolder = dialog->directory().absolutePath();
            dialog->selectFile(path);
            static_cast<QDialog *>(dialog)->accept(); // QFileDialog hides it
        });
    };
    answerDialog(kSamples + QStringLiteral("sample-a.cxf"));
    window->findChild<QAction *>(QStringLiteral("openReferenceAction"))->trigger();
    EXPECT_EQ(controller->dragView1()->swatchLabel(),
              QStringLiteral("Sample A \u2013\u2013 one patch"));
    answerDialog(kSamples + QStringLiteral("sample-b.cxf"));
    window->findChild<QAction *>(QStringLiteral("openSampleAction"))->trigger();
    EXPECT_EQ(shownFolder, QDir(kSamples).absolutePath());

    // Nine more documents: the eight newest are kept, newest first.
    QTemporaryDir dir;
    for (int i = 0; i < 9; ++i) {
        const QString path = dir.filePath(QStringLiteral("copy%1.cxf").arg(i));
        QFile::copy(kSamples + QStringLiteral("sample-b.cxf"), path);
        desktop->openDocument(path, DesktopWindow::Swatch::Sample);
    }
    const QStringList recent = desktop->recentDocuments(DesktopWindow::Swatch::Sample);
    ASSERT_EQ(recent.size(), DesktopWindow::kMaxRecentDocuments);
    EXPECT_EQ(recent.first(), dir.filePath(QStringLiteral("copy8.cxf")));
    EXPECT_EQ(recent.last(), dir.filePath(QStringLiteral("copy1.cxf")));
}

TEST_F(DesktopWindowTest, CopyResultsGivesATabSeparatedTableOnceBothSamplesAreSet)
{
    QAction *copy = desktop->copyResultsAction();
    controller->takeSample({60, 20, 30, 1}, QStringLiteral("ref\tone"), controller->dragView1());
    EXPECT_FALSE(copy->isEnabled());
    controller->takeSample({62, 18, 35, 1}, QStringLiteral("sample"), controller->dragView2());
    ASSERT_TRUE(copy->isEnabled());
    copy->trigger();
    const QStringList lines = QApplication::clipboard()->text().split(QLatin1Char('\n'));
    ASSERT_EQ(lines.size(), 3); // header, row, and the final line break
    EXPECT_EQ(lines.at(0), QStringLiteral("Reference\tSample\tReference L*\tReference a*\t"
                                          "Reference b*\tSample L*\tSample a*\tSample b*\t"
                                          "ΔE CMC (2:1)\tΔL CMC term\tΔC CMC term\t"
                                          "Δh hue angle (°)\tTolerance\tVerdict"));
    // CMC 2:1 worked by hand: ΔE 5.550, ΔL 0.838, ΔC 1.501; hue 56.31° → 62.78°.
    QStringList row = lines.at(1).split(QLatin1Char('\t'));
    ASSERT_EQ(row.size(), 14);
    EXPECT_NEAR(row.takeAt(11).toDouble(), 6.47, 0.11);
    EXPECT_EQ(row.join(QLatin1Char('|')),
              QStringLiteral("ref one|sample|60.000|20.000|30.000|62.000|18.000|35.000|5.55|0.84|"
                             "1.50|2.5|mismatch"));
    UserDefaults::standardUserDefaults()->setFloat(6.25f, kToleranceKey);
    EXPECT_TRUE(desktop->toleranceLabel()->text().contains(QStringLiteral("6.25")));
}

TEST_F(DesktopWindowTest, TheStatusBarNamesTheRefusedDocumentAndWhy)
{
    QTemporaryDir dir;
    QFile huge(dir.filePath(QStringLiteral("huge.cxf")));
    ASSERT_TRUE(huge.open(QIODevice::WriteOnly) && huge.resize((qint64(64) << 20) + 1));
    const struct {
        QString path, name, why;
    } rows[] = {
        {kSamples + QStringLiteral("d65-measurement.cxf"), QStringLiteral("d65-measurement.cxf"),
         QStringLiteral("The Lab colors were not specified with D50 illuminant and 2° observer.")},
        {dir.path(), QFileInfo(dir.path()).fileName(), QStringLiteral("it is a directory")},
        {dir.filePath(QStringLiteral("gone.cxf")), QStringLiteral("gone.cxf"),
         QStringLiteral("no such file")},
        {QStringLiteral(CXF_TEST_DATA_DIR "/cxf/invalid-utf8.cxf"),
         QStringLiteral("invalid-utf8.cxf"), QStringLiteral("not UTF-8 text")},
        {huge.fileName(), QStringLiteral("huge.cxf"), QStringLiteral("larger than 64 MiB")},
    };
    for (const auto &row : rows) {
        desktop->openDocument(row.path, DesktopWindow::Swatch::Sample);
        const QString status = window->statusBar()->currentMessage();
        EXPECT_TRUE(status.contains(row.name) && status.contains(row.why)) << status.toStdString();
    }
    // An unreadable file is still reported as the import reports any unreadable document.
    EXPECT_TRUE(window->statusBar()->currentMessage().contains(QStringLiteral("Invalid XML data")));
    EXPECT_TRUE(desktop->recentDocuments(DesktopWindow::Swatch::Sample).isEmpty());
}

TEST_F(DesktopWindowTest, FieldTextAndTheEmptyTargetMessageReadWellInLightAndDarkPalettes)
{
    // WCAG reference values: black on white 21:1, #777 on white 4.48:1.
    EXPECT_NEAR(contrastRatio(Qt::black, Qt::white), 21.0, 1e-9);
    EXPECT_NEAR(contrastRatio(QColor(0x77, 0x77, 0x77), Qt::white), 4.48, 0.005);

    QPalette dark(QColor(230, 230, 230), QColor(45, 45, 48)); // window text, window
    dark.setColor(QPalette::Base, QColor(30, 30, 32));
    dark.setColor(QPalette::Text, QColor(230, 230, 230));
    const QPalette original = QApplication::palette();
    for (const QPalette &palette : {QApplication::style()->standardPalette(), dark}) {
        QApplication::setPalette(palette);
        const QColor message =
            readableTextColor(palette.color(QPalette::Window), QColor::fromRgbF(0.4f, 0.4f, 0.4f));
        EXPECT_GE(contrastRatio(message, palette.color(QPalette::Window)), 4.5);
        // Green match; red mismatch with the hue term highlighted; identical (neutral).
        const LabColor pairs[][2] = {{{60, 20, 30, 1}, {61, 19, 31, 1}},
                                     {{60, 20, 30, 1}, {62, 18, 35, 1}},
                                     {{60, 20, 30, 1}, {60, 20, 30, 1}}};
        for (const auto &pair : pairs) {
            controller->takeSample(pair[0], QString(), controller->dragView1());
            controller->takeSample(pair[1], QString(), controller->dragView2());
            for (QLineEdit *field : {controller->delta_E_tf(), controller->delta_L_tf(),
                                     controller->delta_C_tf(), controller->delta_H_tf()})
                EXPECT_GE(contrastRatio(field->palette().color(QPalette::Base),
                                        field->palette().color(QPalette::Text)),
                          4.5)
                    << field->objectName().toStdString() << " " << pair[1].L;
        }
    }
    QApplication::setPalette(original);
}

} // namespace
