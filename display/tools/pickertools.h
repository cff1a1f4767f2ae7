/// The mouse modes of the display that pickers of higher floors stand in.
#ifndef PICKERTOOLS_H
#define PICKERTOOLS_H

#include "display/tools/canvastool.h"

#include <array>

class DisplayPicker;

/// A mouse mode with its text in the control line. What the mouse does in it is up to who has put itself there; without
/// anybody the plain buttons do nothing.
class PickerTool : public CanvasTool
{
public:
    explicit PickerTool(const char* text) : _text(text) {}

    /// Gets the events of the canvas while the mode is on; null for nobody.
    void setHandler(CanvasTool* handler);
    /// Is told when the mode begins and ends, and of each ensemble. Lent; null for nobody.
    void setPicker(DisplayPicker* picker) { _picker = picker; }
    void ensembleShown() const;

    bool canvasEvent(QWidget* canvas, QEvent* event) override;
    QString controlText() const override { return _text; }
    void enter() override;
    void leave() override;

private:
    QString _text;
    std::weak_ptr<CanvasTool> _handler;
    DisplayPicker* _picker = nullptr;
};

enum class Picker { Spectrum, Headers, Velocity, Gates, FirstBreaks, Moveout };

/// One of each.
class PickerTools
{
public:
    PickerTool& operator[](Picker picker) { return _tools[size_t(picker)]; }
    /// Whether a tool is the one of the picker.
    bool is(Picker picker, const CanvasTool* tool) const { return tool == &_tools[size_t(picker)]; }
    void ensembleShown() const;

private:
    std::array<PickerTool, 6> _tools{
        PickerTool("   MB1 down/drag: show spectrum"), PickerTool("   MB1 down/drag: show trace headers"),
        PickerTool("   Velocity picking is on"),       PickerTool("   Trevia picking is on"),
        PickerTool("   First break picking is on"),    PickerTool("")};
};

#endif
