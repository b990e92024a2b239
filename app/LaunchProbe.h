#pragma once

class QMainWindow;

// A measurement and self-description hook for benchmarks and the end-to-end test, off unless
// CXF_LAUNCH_PROBE is set in the environment. Then, after the main window's first paint, it
// prints to stdout the time since the process started ("startup-ms: N"), the window's title,
// size and visibility, each result field, and each item of the application menu with its
// index; saves a screenshot to CXF_LAUNCH_PROBE_SCREENSHOT if that names a file; and quits.
void probeLaunchWhenShown(QMainWindow *window);
