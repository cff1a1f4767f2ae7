/// What the displays of a main window ask of it.
#ifndef WINDOWDISPLAYHOST_H
#define WINDOWDISPLAYHOST_H

#include "display/displayhost.h"

class BarColumn;
class ToolBench;
struct HeaderTable;
struct parmmenu;

/// Answers out of the window's header table, its colour bars and its tools.
class WindowDisplayHost : public DisplayHost
{
public:
    /// All are lent and outlive the displays.
    WindowDisplayHost(const HeaderTable* table, const parmmenu* menu, BarColumn* bars, const ToolBench* bench,
                      Report* report)
        : _table(table), _menu(menu), _bars(bars), _bench(bench), _report(report)
    {
    }

    bool isZooming() const override { return _isZooming; }
    void setZooming(bool on) override { _isZooming = on; }
    /// Before anything is loaded a SEG-Y window has the standard words; in a flow the host's lists answer until then.
    const HeaderWords* headerWords() const override;
    void setOverlayMode(bool on) override;
    ColorBarFrame* overlayColorBarFrame() override;
    Report& report() override { return *_report; }

private:
    const HeaderTable* _table;
    const parmmenu* _menu;
    BarColumn* _bars;
    const ToolBench* _bench;
    Report* _report;
    bool _isZooming = false;
};

#endif
