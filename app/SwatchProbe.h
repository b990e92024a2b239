#pragma once

class AppDelegate;

// A hook for the end-to-end drag test, off unless CXF_SWATCH_PROBE is set in the environment.
// Then, once the window is shown, it prints each swatch's place on the screen
// ("dragView1-geometry: x y width height", global coordinates), and whenever a swatch's caption
// changes it prints "dragView1: <lab caption> | <swatch label> | sample 1 defined" (or
// "undefined"), flushing stdout each time.
void probeSwatchesWhenShown(AppDelegate &controller);
