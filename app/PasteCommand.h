#pragma once

class QAction;
class QMenu;
class QVFileDropView;

// Edit > Paste for the drop views: enabled when the focused drop view can take what the
// clipboard holds (checked again when the menu opens, the clipboard changes or the focus
// moves), and handing the clipboard's data to that view's reading.
void installPasteCommand(QAction *paste, QMenu *editMenu);

// The drop view that Paste is aimed at: the focused one, or the last one focused while focus
// has since moved only into a menu; nullptr otherwise.
QVFileDropView *pasteTarget();
