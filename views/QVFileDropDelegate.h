#pragma once
// What a file drop view hands on, and to whom. Every method is optional: a delegate says which
// ones it implements through respondsTo(), and the view asks before each call (the outcome of a
// promised file is the one call made without asking). The defaults do nothing and are never
// reached through the view unless respondsTo() names them.
//
// The methods are virtual functions rather than a table of callbacks so that a view can be its
// own delegate (the swatches are) and a delegate's implementations stay ordinary members; the
// respondsTo() answer keeps "not implemented" distinct from "implemented and did nothing", which
// the view needs (a custom-type view beeps when its delegate cannot read the drop).

#include <QFlags>
#include <QImage>
#include <QList>
#include <QUrl>

#include <optional>

class QMimeData;
class QObject;
class QVFileDropView;

class QVFileDropDelegate
{
public:
    enum Method {
        CanTakeDataFromPasteboard = 0x1,
        TakeDataFromPasteboard = 0x2,
        TakeFiles = 0x4,
        TakeFolders = 0x8,
        TakeFilesAndFolders = 0x10,
        TakeImages = 0x20,
    };
    Q_DECLARE_FLAGS(Methods, Method)

    virtual ~QVFileDropDelegate() = default;

    // The methods this delegate implements; none by default.
    virtual Methods implementedMethods() const { return {}; }
    bool respondsTo(Method method) const { return implementedMethods().testFlag(method); }

    // Replaces the view's own acceptance test. The pasteboard is a drag's data, or the
    // clipboard's for a paste; the sender is the drag's source (nullptr for a paste).
    virtual bool dropViewCanTakeDataFromPasteboard(QVFileDropView *view,
                                                   const QMimeData *pasteboard, QObject *sender);
    // Replaces the view's own reading.
    virtual void dropViewTakeDataFromPasteboard(QVFileDropView *view, const QMimeData *pasteboard,
                                                QObject *sender);
    // Dropped files, or a promised file's outcome: its URL, or no list at all (std::nullopt)
    // when the file did not appear.
    virtual void dropViewTakeFiles(QVFileDropView *view, const std::optional<QList<QUrl>> &files);
    virtual void dropViewTakeFolders(QVFileDropView *view, const QList<QUrl> &folders);
    virtual void dropViewTakeFilesAndFolders(QVFileDropView *view, const QList<QUrl> &urls);
    virtual void dropViewTakeImages(QVFileDropView *view, const QList<QImage> &images);
};

Q_DECLARE_OPERATORS_FOR_FLAGS(QVFileDropDelegate::Methods)
