/// The colour bars at the right of the screens.
#ifndef BARCOLUMN_H
#define BARCOLUMN_H

#include <QVBoxLayout>

class ColorBarFrame;

/// The bar of the data and, from its first use on, that of the overlay below it.
class BarColumn : public QVBoxLayout
{
public:
    BarColumn();

    ColorBarFrame* bar() const { return _bar; }
    /// Made when it is first asked for.
    ColorBarFrame* overlayBar();
    void showOverlayBar(bool on);

private:
    ColorBarFrame* _bar;  // children of the widget that has the column
    ColorBarFrame* _overlayBar = nullptr;
};

#endif
