#pragma once
// A reusable drag-and-drop target: a dashed rounded border, a large arrow and a short message
// ("Drop a file here"). It accepts file URLs, folder URLs, images or any caller-chosen formats,
// decides whether a drag fits, highlights itself while one hovers, and hands what was dropped
// (or pasted) to its delegate. A drag source that only promises a file is waited for: the view
// polls for the file and reports it, or its absence, to the delegate.

#include "QVFileDropDelegate.h"

#include <QColor>
#include <QKeySequence>
#include <QPointer>
#include <QStringList>
#include <QTimer>
#include <QWidget>

class QMimeData;

class QVFileDropView : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString message READ message WRITE setMessage NOTIFY messageChanged)
    Q_PROPERTY(bool acceptsDrop READ acceptsDrop WRITE setAcceptsDrop)
    Q_PROPERTY(bool dragInProgress READ dragInProgress WRITE setDragInProgress NOTIFY
                   dragInProgressChanged)
    Q_PROPERTY(QStringList acceptableDragUTIs READ acceptableDragUTIs WRITE setAcceptableDragUTIs)
    Q_PROPERTY(quint64 acceptableDragCount READ acceptableDragCount WRITE setAcceptableDragCount)
    Q_PROPERTY(qint64 registeredTypes READ registeredTypes)
    Q_PROPERTY(bool showArrow READ showArrow WRITE setShowArrow)
    Q_PROPERTY(bool flipArrow READ flipArrow WRITE setFlipArrow)
    Q_PROPERTY(bool showBorder READ showBorder WRITE setShowBorder)
    Q_PROPERTY(bool drawMessageShadow READ drawMessageShadow WRITE setDrawMessageShadow)
    Q_PROPERTY(bool allowsDrag READ allowsDrag WRITE setAllowsDrag)
    Q_PROPERTY(QColor primaryColor READ primaryColor WRITE setPrimaryColor)
    Q_PROPERTY(QColor backgroundColor READ backgroundColor WRITE setBackgroundColor)

public:
    // What the view was set up to take (registeredTypes).
    enum Kind : qint64 {
        CustomTypes = 0,
        Files = 1,
        Folders = 2,
        FilesAndFolders = 3,
        Images = 4,
    };

    explicit QVFileDropView(QWidget *parent = nullptr);
    ~QVFileDropView() override;

    QString message() const { return m_message; }
    void setMessage(const QString &message);

    bool acceptsDrop() const { return m_acceptsDrop; }
    void setAcceptsDrop(bool acceptsDrop);
    bool dragInProgress() const { return m_dragInProgress; }
    void setDragInProgress(bool dragInProgress);

    // The formats taken (a custom kind); setting them makes the kind custom.
    QStringList acceptableDragUTIs() const { return m_acceptableDragUTIs; }
    void setAcceptableDragUTIs(const QStringList &types);
    // The most items one drag may carry; a built-in kind's message follows the count.
    quint64 acceptableDragCount() const { return m_acceptableDragCount; }
    void setAcceptableDragCount(quint64 count);
    qint64 registeredTypes() const { return m_registeredTypes; }

    void registerForDraggedFiles();
    void registerForDraggedFolders();
    void registerForDraggedFilesAndFolders();
    void registerForDraggedImages();

    // Not owned.
    QVFileDropDelegate *dragDelegate() const { return m_dragDelegate; }
    void setDragDelegate(QVFileDropDelegate *delegate) { m_dragDelegate = delegate; }

    bool showArrow() const { return m_showArrow; }
    void setShowArrow(bool show) { m_showArrow = show; }
    bool flipArrow() const { return m_flipArrow; }
    void setFlipArrow(bool flip) { m_flipArrow = flip; }
    bool showBorder() const { return m_showBorder; }
    void setShowBorder(bool show) { m_showBorder = show; }
    bool drawMessageShadow() const { return m_drawMessageShadow; }
    void setDrawMessageShadow(bool draw) { m_drawMessageShadow = draw; }
    // Stored only.
    bool allowsDrag() const { return m_allowsDrag; }
    void setAllowsDrag(bool allows) { m_allowsDrag = allows; }
    QColor primaryColor() const { return m_primaryColor; }
    void setPrimaryColor(const QColor &color) { m_primaryColor = color; }
    // An invalid colour: no background.
    QColor backgroundColor() const { return m_backgroundColor; }
    void setBackgroundColor(const QColor &color) { m_backgroundColor = color; }

    // Whether the pasteboard holds something this view can take; the sender is the drag's
    // source, nullptr for a paste.
    bool canTakeDataFromPasteboard(const QMimeData *pasteboard, QObject *sender);
    // Reads the pasteboard and hands what it holds to the delegate.
    void takeDataFromPasteboard(const QMimeData *pasteboard, QObject *sender);
    // Waits for a promised file to appear at `path` (one attempt now, then every 0.1 s, 100 in
    // all across every view) and reports it, or its absence, through dropViewTakeFiles.
    void pollForPromisedFileAtPath(const QString &path);
    QTimer *promisedFileTimer() const { return m_promisedFileTimer; }
    // Paste is enabled when the clipboard holds something this view can take; other commands
    // are not the view's.
    bool validateUserInterfaceItem(QKeySequence::StandardKey action);

    // The poll's interval in milliseconds (100); shorter in tests.
    static int promisedFilePollInterval();
    static void setPromisedFilePollInterval(int milliseconds);
    static constexpr int kPromisedFileAttempts = 100;

    QSize sizeHint() const override { return {220, 160}; }

Q_SIGNALS:
    void messageChanged(const QString &message);
    void dragInProgressChanged(bool dragInProgress);

protected:
    void paintEvent(QPaintEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

    // Draws the empty drop target (border, arrow, message) into a painter on this view.
    void drawDropTarget(QPainter &painter);

private:
    void registerKind(Kind kind, const QStringList &types);
    void updateMessageForKind();
    void invalidatePromisedFileTimer();
    bool canTakeByKind(const QMimeData *pasteboard);
    void takeByKind(const QMimeData *pasteboard, QObject *sender);
    void takePromisedFile(const QMimeData *pasteboard, QObject *sender);

    QPointer<QTimer> m_promisedFileTimer;
    bool m_dragInProgress = false;
    QString m_message;
    bool m_acceptsDrop = true;
    QStringList m_acceptableDragUTIs;
    quint64 m_acceptableDragCount = 1;
    qint64 m_registeredTypes = CustomTypes;
    QVFileDropDelegate *m_dragDelegate = nullptr;
    bool m_showArrow = true;
    bool m_flipArrow = false;
    bool m_showBorder = true;
    bool m_drawMessageShadow = true;
    bool m_allowsDrag = false;
    QColor m_primaryColor;
    QColor m_backgroundColor;
};
