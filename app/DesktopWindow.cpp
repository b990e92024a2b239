#include "DesktopWindow.h"

#include "AppDelegate.h"
#include "BkgndColorView.h"
#include "DocumentFile.h"
#include "UserDefaults.h"
#include "preferences.h"
#include "ui_MainWindow.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QDir>
#include <QDropEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMimeData>
#include <QSettings>
#include <QStatusBar>
#include <QTimer>
#include <QUrl>

#include <cstdio>

namespace {

const QString kToleranceKeyPath = QLatin1String(kToleranceKey);

// The window's own settings, in a group apart from the preferences.
struct WindowSettings : QSettings {
    WindowSettings()
        : QSettings(QSettings::NativeFormat, QSettings::UserScope,
                    QLatin1String(kSettingsOrganization), QLatin1String(kSettingsApplication))
    {
        beginGroup(QStringLiteral("MainWindow"));
    }
};

QString recentKey(DesktopWindow::Swatch swatch)
{
    return swatch == DesktopWindow::Swatch::Reference ? QStringLiteral("recentReferences")
                                                      : QStringLiteral("recentSamples");
}

const QString kGeometryKey = QStringLiteral("geometry");
const QString kLastFolderKey = QStringLiteral("lastFolder");

// Hands the file at path to swatch as a drop of that one file does.
void handFileToSwatch(BkgndColorView *swatch, const QString &path)
{
    swatch->dropViewTakeFiles(swatch, QList<QUrl>{QUrl::fromLocalFile(path)});
}

// A caption in one spreadsheet cell.
QString cell(QString text)
{
    return text.replace(QLatin1Char('\t'), QLatin1Char(' '))
        .replace(QLatin1Char('\n'), QLatin1Char(' '));
}

QString labText(LabColor lab)
{
    return QStringLiteral("%1\t%2\t%3")
        .arg(lab.L, 0, 'f', 3)
        .arg(lab.a, 0, 'f', 3)
        .arg(lab.b, 0, 'f', 3);
}

} // namespace

DesktopWindow::DesktopWindow(QMainWindow *window, AppDelegate &controller, const Ui::MainWindow &ui)
    : QObject(window), m_window(window), m_controller(controller)
{
    setObjectName(QStringLiteral("desktopWindow"));
    buildMenus(ui);

    m_toleranceLabel = new QLabel(window);
    m_toleranceLabel->setObjectName(QStringLiteral("toleranceLabel"));
    m_toleranceLabel->setAccessibleName(tr("Tolerance"));
    window->statusBar()->addPermanentWidget(m_toleranceLabel);
    showTolerance();
    UserDefaults::standardUserDefaults()->addObserver(this, kToleranceKeyPath,
                                                      KeyValueObservingOption::New, nullptr);

    for (BkgndColorView *swatch : {ui.dragView1, ui.dragView2}) {
        swatch->setFocusPolicy(Qt::StrongFocus); // reachable by Tab and the title's mnemonic
        swatch->installEventFilter(this);
        describeSwatch(swatch);
    }
    for (QLineEdit *field : {ui.delta_L_tf, ui.delta_C_tf, ui.delta_H_tf})
        field->setToolTip(AppDelegate::highlightRule());
    for (QLineEdit *field : {ui.delta_E_tf, ui.delta_L_tf, ui.delta_C_tf, ui.delta_H_tf})
        field->setAccessibleDescription(tr("No result yet: open a reference and a sample."));
    ui.verdictLabel->setAccessibleDescription(tr("No verdict yet."));
    connect(&controller, &AppDelegate::sampleShown, this, [this](BkgndColorView *swatch) {
        describeSwatch(swatch);
        m_window->statusBar()->clearMessage();
        m_copyResults->setEnabled(m_controller.isSample1Defined() &&
                                  m_controller.isSample2Defined());
    });
    connect(&controller, &AppDelegate::documentRefused, this, &DesktopWindow::showRefusal);

    window->restoreGeometry(WindowSettings().value(kGeometryKey).toByteArray());
    window->installEventFilter(this);
    connect(qApp, &QCoreApplication::aboutToQuit, this, &DesktopWindow::saveGeometry);
}

DesktopWindow::~DesktopWindow()
{
    UserDefaults::standardUserDefaults()->removeObserver(this, kToleranceKeyPath);
}

void DesktopWindow::buildMenus(const Ui::MainWindow &ui)
{
    QAction *openReference = ui.menuFile->addAction(tr("Open &Reference\u2026"), this,
                                                    [this] { chooseDocument(Swatch::Reference); });
    openReference->setObjectName(QStringLiteral("openReferenceAction"));
    openReference->setShortcut(QKeySequence::Open);
    QAction *openSample = ui.menuFile->addAction(tr("Open &Sample\u2026"), this,
                                                 [this] { chooseDocument(Swatch::Sample); });
    openSample->setObjectName(QStringLiteral("openSampleAction"));
    openSample->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_O));
    ui.menuFile->addSeparator();
    for (const Swatch swatch : {Swatch::Reference, Swatch::Sample}) {
        QMenu *recent = ui.menuFile->addMenu(
            swatch == Swatch::Reference ? tr("Open Recent R&eference") : tr("Open Recent Sa&mple"));
        recent->setObjectName(swatch == Swatch::Reference ? QStringLiteral("recentReferenceMenu")
                                                          : QStringLiteral("recentSampleMenu"));
        connect(recent, &QMenu::aboutToShow, this,
                [this, recent, swatch] { fillRecentMenu(recent, swatch); });
        fillRecentMenu(recent, swatch);
    }

    m_copyResults = ui.menuEdit->addAction(
        tr("&Copy Results"), this, [this] { QApplication::clipboard()->setText(resultsText()); });
    m_copyResults->setObjectName(QStringLiteral("copyResultsAction"));
    m_copyResults->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C));
    m_copyResults->setStatusTip(
        tr("Copies both samples and the differences as a table for a spreadsheet."));
    m_copyResults->setEnabled(false);
}

void DesktopWindow::fillRecentMenu(QMenu *menu, Swatch swatch)
{
    menu->clear();
    const QStringList paths = recentDocuments(swatch);
    for (int i = 0; i < paths.size(); ++i) {
        const QString path = paths.at(i);
        QAction *item =
            menu->addAction(tr("&%1 %2").arg(i + 1).arg(QFileInfo(path).fileName().replace(
                                QLatin1Char('&'), QLatin1String("&&"))),
                            this, [this, path, swatch] { openDocument(path, swatch); });
        item->setToolTip(QDir::toNativeSeparators(path));
        item->setStatusTip(QDir::toNativeSeparators(path));
    }
    if (paths.isEmpty())
        menu->addAction(tr("No Recent Documents"))->setEnabled(false);
    menu->addSeparator();
    QAction *clear = menu->addAction(tr("&Clear"), this,
                                     [swatch] { WindowSettings().remove(recentKey(swatch)); });
    clear->setEnabled(!paths.isEmpty());
}

BkgndColorView *DesktopWindow::swatchView(Swatch swatch) const
{
    return swatch == Swatch::Reference ? m_controller.dragView1() : m_controller.dragView2();
}

void DesktopWindow::chooseDocument(Swatch swatch)
{
    QFileDialog dialog(m_window,
                       swatch == Swatch::Reference ? tr("Open Reference") : tr("Open Sample"),
                       WindowSettings().value(kLastFolderKey, QDir::homePath()).toString());
    dialog.setObjectName(QStringLiteral("openDocumentDialog"));
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setNameFilters({tr("CxF documents (*.cxf *.xml)"), tr("All files (*)")});
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return;
    const QString path = dialog.selectedFiles().constFirst();
    WindowSettings().setValue(kLastFolderKey, QFileInfo(path).absolutePath());
    openDocument(path, swatch);
}

void DesktopWindow::openDocument(const QString &path, Swatch swatch)
{
    m_documentName = QFileInfo(path).fileName();
    m_documentPath = path;
    m_refused = false;
    handFileToSwatch(swatchView(swatch), path);
    // The swatch reads the file once; why it gave no text is worked out only on a refusal.
    if (!m_readProblem.isEmpty()) {
        const QString line = tr("%1: cannot read “%2”: %3\n")
                                 .arg(QFileInfo(QCoreApplication::applicationFilePath()).fileName(),
                                      QDir::toNativeSeparators(path), m_readProblem);
        std::fputs(line.toLocal8Bit().constData(), stderr);
        std::fflush(stderr);
    }
    if (!m_refused)
        rememberDocument(path, swatch);
    m_documentName.clear();
    m_documentPath.clear();
    m_readProblem.clear();
}

void DesktopWindow::openDocumentsLater(const QStringList &paths)
{
    if (paths.isEmpty())
        return;
    QTimer::singleShot(0, this, [this, paths] {
        for (qsizetype i = 0; i < paths.size() && i < 2; ++i)
            openDocument(paths.at(i), i == 0 ? Swatch::Reference : Swatch::Sample);
    });
}

QStringList DesktopWindow::recentDocuments(Swatch swatch) const
{
    return WindowSettings().value(recentKey(swatch)).toStringList();
}

void DesktopWindow::rememberDocument(const QString &path, Swatch swatch)
{
    const QString absolute = QFileInfo(path).absoluteFilePath();
    QStringList paths = recentDocuments(swatch);
    paths.removeAll(absolute);
    paths.prepend(absolute);
    WindowSettings().setValue(recentKey(swatch), paths.mid(0, kMaxRecentDocuments));
}

void DesktopWindow::showRefusal(const QString &message)
{
    m_refused = true;
    // A dropped or opened file that the swatch could not read: say why.
    if (m_readProblem.isEmpty() && !m_documentPath.isEmpty())
        m_readProblem = readDocumentFile(m_documentPath).problem;
    QString text;
    if (!m_readProblem.isEmpty())
        text = tr("Could not read “%1”: %2 (%3)").arg(m_documentName, m_readProblem, message);
    else if (!m_documentName.isEmpty())
        text = tr("Could not use “%1”: %2").arg(m_documentName, message);
    else
        text = tr("Could not use the document: %1").arg(message);
    m_window->statusBar()->showMessage(text);
    m_window->statusBar()->setToolTip(text); // the whole text, when the window is narrow
}

void DesktopWindow::describeSwatch(BkgndColorView *swatch)
{
    const bool isReference = swatch == m_controller.dragView1();
    const LabColor lab = swatch->labColor();
    if (!(lab.alpha > 0)) {
        swatch->setAccessibleDescription(
            isReference ? tr("Empty. Drop a CxF document here or use File, Open Reference.")
                        : tr("Empty. Drop a CxF document here or use File, Open Sample."));
        return;
    }
    swatch->setAccessibleDescription(tr("%1. D50 L* %2, a* %3, b* %4.")
                                         .arg(swatch->swatchLabel())
                                         .arg(lab.L, 0, 'f', 3)
                                         .arg(lab.a, 0, 'f', 3)
                                         .arg(lab.b, 0, 'f', 3));
}

QString DesktopWindow::resultsText() const
{
    if (!m_controller.isSample1Defined() || !m_controller.isSample2Defined())
        return {};
    const float tolerance = UserDefaults::standardUserDefaults()->floatForKey(kToleranceKeyPath);
    const QStringList header{tr("Reference"),    tr("Sample"),       tr("Reference L*"),
                             tr("Reference a*"), tr("Reference b*"), tr("Sample L*"),
                             tr("Sample a*"),    tr("Sample b*"),    tr("ΔE CMC (2:1)"),
                             tr("ΔL CMC term"),  tr("ΔC CMC term"),  tr("Δh hue angle (°)"),
                             tr("Tolerance"),    tr("Verdict")};
    const QStringList row{cell(m_controller.dragView1()->swatchLabel()),
                          cell(m_controller.dragView2()->swatchLabel()),
                          labText(m_controller.sample1()),
                          labText(m_controller.sample2()),
                          m_controller.delta_E_tf()->text(),
                          m_controller.delta_L_tf()->text(),
                          m_controller.delta_C_tf()->text(),
                          m_controller.delta_H_tf()->text(),
                          QString::number(double(tolerance), 'g', 6),
                          m_controller.verdictLabel()->text()};
    return header.join(QLatin1Char('\t')) + QLatin1Char('\n') + row.join(QLatin1Char('\t')) +
           QLatin1Char('\n');
}

void DesktopWindow::observeValueForKeyPath(const QString &keyPath, QObject *,
                                           const KeyValueChange &, void *)
{
    if (keyPath == kToleranceKeyPath)
        showTolerance();
}

void DesktopWindow::showTolerance()
{
    const float tolerance = UserDefaults::standardUserDefaults()->floatForKey(kToleranceKeyPath);
    m_toleranceLabel->setText(
        tr("Tolerance: ΔE CMC ≤ %1").arg(QString::number(double(tolerance), 'g', 6)));
    m_toleranceLabel->setToolTip(tr("Set in Preferences (Ctrl+,)."));
}

bool DesktopWindow::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_window && event->type() == QEvent::Close) {
        saveGeometry();
    } else if (event->type() == QEvent::Drop) {
        // Remember what is being dropped for the status bar, until the drop has been handled.
        const QMimeData *mime = static_cast<QDropEvent *>(event)->mimeData();
        const QList<QUrl> urls = mime && mime->hasUrls() ? mime->urls() : QList<QUrl>();
        m_documentName = urls.isEmpty() ? QString() : urls.first().fileName();
        m_documentPath = urls.isEmpty() ? QString() : urls.first().toLocalFile();
        QTimer::singleShot(0, this, [this] {
            m_documentName.clear();
            m_documentPath.clear();
            m_readProblem.clear();
        });
    }
    return QObject::eventFilter(watched, event);
}

void DesktopWindow::saveGeometry()
{
    WindowSettings().setValue(kGeometryKey, m_window->saveGeometry());
}
