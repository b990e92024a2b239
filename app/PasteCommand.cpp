#include "PasteCommand.h"

#include "QVFileDropView.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QPointer>

namespace {

QPointer<QVFileDropView> gPasteTarget;

void followFocus(QWidget *now)
{
    if (auto *view = qobject_cast<QVFileDropView *>(now))
        gPasteTarget = view;
    else if (now && !qobject_cast<QMenu *>(now) && !now->inherits("QMenuBar"))
        gPasteTarget = nullptr;
    // Focus leaving the application (now is nullptr) keeps the target.
}

} // namespace

QVFileDropView *pasteTarget()
{
    return gPasteTarget;
}

void installPasteCommand(QAction *paste, QMenu *editMenu)
{
    paste->setShortcuts(QKeySequence::Paste);
    const auto validate = [paste] {
        QVFileDropView *view = pasteTarget();
        paste->setEnabled(view && view->validateUserInterfaceItem(QKeySequence::Paste));
    };
    followFocus(QApplication::focusWidget());
    validate();
    QObject::connect(editMenu, &QMenu::aboutToShow, paste, validate);
    QObject::connect(QApplication::clipboard(), &QClipboard::dataChanged, paste, validate);
    QObject::connect(qApp, &QApplication::focusChanged, paste, [validate](QWidget *, QWidget *now) {
        followFocus(now);
        validate();
    });
    QObject::connect(paste, &QAction::triggered, paste, [] {
        if (QVFileDropView *view = pasteTarget())
            view->takeDataFromPasteboard(QApplication::clipboard()->mimeData(), nullptr);
    });
}
