/// Enums and the small record that all display code shares. Their numbers stand in menus and files.
#ifndef ORVINCONSTANTS_H
#define ORVINCONSTANTS_H

enum ColorType { ColorNo = 0, GrayScale = 1, ColorYes = 2 };

enum DisplayType {
    WiggleVA = 0,
    Wiggle = 1,
    VA = 2,
    ColorB = 3,
    ColorWiggle = 4,
    Map = 5,
    Velocity = 6,
    Grayscale = 7
};

/// How traces are scaled: each by itself, all by one divisor, not at all.
enum class Normalize { Trace = 0, Dataset = 1, None = 2 };

enum PlotDirection { LeftToRight = 0, RightToLeft = 1, TopToBottom = 2, BottomToTop = 3 };

/// The window into a data set that a plot shows; traces and samples count from 0.
struct SeisRect {
    int traceNum = 0;   ///< first trace
    int sampleNum = 0;  ///< first sample
    int nTraces = 0;
    int nSamples = 0;
};

/// "No value" in fields, coordinates, grids and host tables.
constexpr float nullValue = 3.4e38f;

#endif
