#pragma once
// What the main window adds around the comparison for a desktop user: File > Open Reference…
// and Open Sample… (with recent documents), Edit > Copy Results, a status bar with the last
// refused document and the tolerance, accessible descriptions of the swatches, and the window's
// remembered size and place. Lives as long as its window, which owns it.

#include "KeyValueObserving.h"

#include <QObject>
#include <QString>
#include <QStringList>

class AppDelegate;
class BkgndColorView;
class QAction;
class QLabel;
class QMainWindow;
class QMenu;
namespace Ui {
class MainWindow;
}

class DesktopWindow : public QObject, public KeyValueObserver
{
    Q_OBJECT

public:
    enum class Swatch { Reference, Sample };

    // Most documents remembered per swatch in Open Recent.
    static constexpr int kMaxRecentDocuments = 8;

    DesktopWindow(QMainWindow *window, AppDelegate &controller, const Ui::MainWindow &ui);
    ~DesktopWindow() override;

    // Reads the file at path into swatch the way a drop of that file does. A file that cannot
    // be read is still handed on (the import then reports it as for any unreadable document),
    // and the reason is shown in the status bar and written to stderr.
    void openDocument(const QString &path, Swatch swatch);
    // Opens the command line's documents (reference first, then sample) once the event loop
    // runs, so that any alert is centred on the shown window.
    void openDocumentsLater(const QStringList &paths);
    // File > Open Reference… / Open Sample…: a file dialog, starting in the last folder used.
    void chooseDocument(Swatch swatch);

    QStringList recentDocuments(Swatch swatch) const;
    // Tab-separated header and row of both captions, Lab values, the four fields, the tolerance
    // and the verdict; empty until both samples are defined.
    QString resultsText() const;

    QAction *copyResultsAction() const { return m_copyResults; }
    QLabel *toleranceLabel() const { return m_toleranceLabel; }

    void observeValueForKeyPath(const QString &keyPath, QObject *object,
                                const KeyValueChange &change, void *context) override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    BkgndColorView *swatchView(Swatch swatch) const;
    void buildMenus(const Ui::MainWindow &ui);
    void fillRecentMenu(QMenu *menu, Swatch swatch);
    void rememberDocument(const QString &path, Swatch swatch);
    void showRefusal(const QString &message);
    void describeSwatch(BkgndColorView *swatch);
    void showTolerance();
    void saveGeometry();

    QMainWindow *m_window;
    AppDelegate &m_controller;
    QAction *m_copyResults = nullptr;
    QLabel *m_toleranceLabel = nullptr;
    // The document being opened or dropped, for the status bar; empty when not known.
    QString m_documentName;
    QString m_documentPath; // the local file being dropped or opened, if any
    QString m_readProblem;
    bool m_refused = false;
};
