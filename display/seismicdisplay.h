/// The plot widget of one screen: an ensemble with its axes, read-out, zoom and pan.
#ifndef SEISMICDISPLAY_H
#define SEISMICDISPLAY_H

#include "display/displayaxes.h"
#include "display/headeraxis.h"
#include "display/images/imagerecorder.h"
#include "display/images/imagetool.h"
#include "display/myqwtplot.h"
#include "display/overlaylayer.h"
#include "display/plotowner.h"
#include "display/polarity.h"
#include "display/statuslines.h"
#include "display/tools/contextmenu.h"
#include "display/tools/pickertools.h"
#include "display/tools/readouttool.h"
#include "display/tracelayer.h"
#include "display/zoom/zoomlink.h"
#include "display/zoom/zoomtool.h"
#include "tracedata/orvinconstants.h"

#include <QString>

class AxisDrag;
class BoxTool;
class CanvasTools;
class ColorBarFrame;
class DisplayHost;
class DisplayList;
class EnsembleView;
class HeaderStrip;
class ImageStorage;
class PlotScrollBars;
class QStatusBar;
class QwtPlotGrid;
class RecordAxisScaleDraw;
class Report;
class SeismicData;
class SeismicPlot;
class VelocityClicks;
class VelocityOverlay;
struct parmmenu;

/// Takes batches of traces, keeps its own copy, and shows it.
///
/// The face of its parts: layers of traces, axes, tools on the canvas, pictures, status lines. The display owns them;
/// the parameter record, the colour bar, the status bars and the host are lent and outlive it. A tool needs only what
/// view() and tools() give. Main thread only.
class SeismicDisplay : public MyQwtPlot, public PlotOwner
{
    Q_OBJECT

public:
    /// @param host           the window; may be null, then no zoom is spread
    /// @param statusbar      gets the read-out, may be null
    /// @param controlStatus  gets the line of mouse help, may be null
    SeismicDisplay(QWidget* parent, const QString& title, QStatusBar* statusbar, QStatusBar* controlStatus,
                   bool enableLeft, bool enableRight, int windowNumber, DisplayHost* host);
    ~SeismicDisplay() override;

    /// The colour table of the raster; must be set before the first load. Lent.
    void setColorBar(ColorBarFrame* bar);
    /// The display shows the difference of two others, and says so in its title.
    void setDifferenceFlag(bool on) { _isDifference = on; }
    /// Takes all display parameters. Lent, also for later loads.
    void setMenu(parmmenu* menu);
    /// The same for another file, whose first ensemble is shown whole. The traces of the old one go; the conditioning
    /// stays.
    void setNewFile(parmmenu* menu);
    /// Takes the keys and the ensemble size that the record has now, for another sort of the same traces; how they
    /// are shown stays.
    void setNewKeys();
    /// Shows its traces as another display does: mode, conditioning, scaling, spacing, keys and grid.
    void takeLook(const SeismicDisplay& other);
    /// Lets the traces go; the background stays.
    void clearData();
    /// The store of the window's pictures; without one none are stored. Lent.
    void setImageStorage(ImageStorage* imgstore) { _images.setStorage(imgstore); }
    /// Sister displays that take over zooms and pans; lent.
    void setLists(const DisplayList* displays, const DisplayList* others);
    /// Takes sample rate, sizes and time window from the record's run-time copy.
    void setNewData();
    /// Changes domain, sample count and rate; domain 8 is the time slice.
    void setDomain(int domain, int startTime, int numsmp, float samprat);

    /// Shows a batch of n traces with their header words, copied before this returns; before that the batch hooks may
    /// change the words. Returns 0, or 1 when memory ran out, which the report is told; the old data then stay in
    /// view. With n below 1 the old data stay too.
    int loadSeismicData(float** traces, int** heads, int n, bool replot);
    /// Only copies the batch. Returns 1, or 0 when memory ran out.
    int loadTraces(float** traces, int** heads, int n);
    /// Shows a batch over the data on the screen, translucent, in colours of its own. Returns 0, or 1 when
    /// memory ran out.
    int loadOverlayData(float** traces, int** heads, int n, bool replot);
    /// With on, the next batch goes over the data on the screen, and from then on every second one.
    void setOverlayMode(bool on);
    /// Copies edited header words back into heads, if the data are marked changed; always 0.
    int saveSeismicData(float** traces, int** heads, int n);
    /// Copies trace i, counted from 0, and its header out.
    void getSeismicData(float* trace, int* header, int i) const;

    /// Mean absolute amplitude of the live traces; with apply the plot scales by it. Returns it.
    float computeRMS(bool apply);
    /// Sizes everything to the canvas again and goes back to the base; with resetOthers the sisters too.
    void rebuildDisplay(bool resetOthers);
    void rebuildPlot();
    void rePlot();
    void setTraceIncrement(float incr);
    void setTimeIncrement(float incr);
    /// The same for a step that the user typed, which the axis keeps at every zoom; that of traces until another file.
    void typeTraceIncrement(float incr);
    void typeTimeIncrement(float incr);
    /// Reads names and values of the keys from the headers. Returns 0, or 1 when memory ran out.
    int buildHeaderAxis();
    void setDisplayTitle();
    void setAxisTitle(const QString& text) { _axes.setVerticalTitle(text); }
    void enableVerticalAxis(bool left, bool right);
    /// Shows or hides the numbers of all axes.
    void setVAxisValues(bool on);
    /// Labels and title from the words that are the keys now; the axes are brought up to date.
    void axesFollowHeaders();
    /// Shows a title of the primary key in front of which stands `before`.
    void showTitle(const QString& before, float primary, const QString& parm);
    /// The side of the first trace, for both plots and the axes. The caller rebuilds the plot.
    void setPlotDirection(PlotDirection direction);
    /// Header words of the title and of the trace labels; the axes follow, the caller rebuilds the plot.
    void setPriKey(WordFrom0 word);
    void setSecKey(WordFrom0 word);

    /// The plain buttons zoom and pan, or, with false, do so with Ctrl.
    void setZoom(bool on);
    void setTimeZoom(bool timeOnly, bool traceOnly) { _zoom->setOnly(timeOnly, traceOnly); }
    /// Zooms to a rectangle in scale units: traces and ms.
    void setZoomRect(const QRectF& rect) { _zoom->zoomTo(rect); }
    /// Back to what is shown without a zoom, this display only.
    void resetZoom(int index);
    /// The whole data become the base; what the axes show is where going back ends.
    void setZoomBase();
    QRectF zoomBase() const { return _zoom->base(); }
    /// What is shown without a zoom: the base, or the part of it that a fixed spacing shows.
    QRectF restRect() const { return _zoom->restRect(); }
    /// What the axes show, traces and ms.
    QRectF visibleRect() const { return _axes.visibleRect(); }
    /// Sets the axes; the zoom's stack stays, nothing is replotted.
    void setVisibleRect(const QRectF& rect);
    bool isZoomed() const { return _zoom->isZoomed(); }
    bool isPanned() const { return _zoom->isPanned(); }
    /// Moves the picture down by pixels.
    void panVertically(int dy) { _zoom->panVertically(dy); }
    bool hasHorizontalBar() const;
    /// Leaves room for the bar of a display beside this one, so that their times stand in line.
    void reserveHorizontalBar(bool on);
    /// Pixels that the labels of the vertical axes take below the canvas.
    int roomBelowCanvas() const { return _axes.roomBelowCanvas(); }
    /// Leaves so many more pixels free below the canvas, so that times are in line with a sister's.
    void reserveBelow(int nPixels);

    /// What a tool may know of the ensemble on the screen.
    EnsembleView& view() const { return *_view; }
    /// Who has the mouse on the canvas.
    CanvasTools& tools() const { return *_tools; }
    /// Gives the mouse to a tool, lent; null: back to zooming.
    void setTool(CanvasTool* tool);
    /// The active tool; that of zooming where no other is.
    const CanvasTool* tool() const;
    const CanvasTool* zoomTool() const { return _zoom; }
    /// The mouse modes of the pickers, where tools of higher floors put themselves.
    PickerTools& pickers() { return _pickers; }
    ContextMenu& contextMenu() { return _contextMenu; }
    /// Lent; null for none.
    void setHeaderStrip(HeaderStrip* strip) { _strip = strip; }
    void setVelocityOverlay(VelocityOverlay* overlay);
    /// Turns a picker's mode on or off; off is zooming, unless another tool has the mouse.
    void setPicker(Picker picker, bool on);
    void setSPicker(bool on) { setPicker(Picker::Spectrum, on); }
    void setHPicker(bool on) { setPicker(Picker::Headers, on); }
    void setVelPicker(bool on) { setPicker(Picker::Velocity, on); }
    void setGatPicker(bool on) { setPicker(Picker::Gates, on); }
    void setFBPicker(bool on) { setPicker(Picker::FirstBreaks, on); }
    void setMovPicker(bool on) { setPicker(Picker::Moveout, on); }
    /// The mode of the tool bar: 0 zoom, 1 spectrum, 2 headers, -1 none of them; then a picker keeps the mouse.
    void showDisplay(int mode);
    /// Buttons and control line follow the active tool, or the stored pictures.
    void showTool();
    /// A stored picture, counted from 0, was reached with the mouse: one that is tied to it follows.
    void tieImage(int number);
    void setControlLabel(const QString& text);
    /// Adds to the status line until the next read-out.
    void addMessage(const QString& text) { _lines.add(text); }

    // The pictures; ImageRecorder tells what each does.
    void checkSavedImage() { _images.checkSavedImage(); }
    void buildImage() { _images.buildImage(); }
    void storeImage(bool extra) { _images.storeImage(extra); }
    void saveToFile(const QString& name, bool check) { _images.saveToFile(name, check); }
    void setResizeImage(bool on) { _images.setResizeImage(on); }
    void setImageStored(bool on) { _images.setImageStored(on); }
    /// Shows stored pictures in place of the data, or the data again.
    void setShowImage(bool state) { _images.setShowImage(state); }
    /// Shows picture i of the store, from 0; nothing where there is none.
    void showImage(int i);
    void showImageAxis(int i) { _images.showImageAxis(i); }
    /// With on the mouse meets only the pictures of the list, counted from 1.
    void setShowImageList(bool on, const QVector<int>& list);
    const ImageRecorder& images() const { return _images; }
    ImageRecorder& images() { return _images; }
    RecordAxisScaleDraw* recordAxis() const { return _axes.record(); }

    /// Takes the lines and boxes of the display.
    Report& report() const;
    SeismicData* seismicData() const { return _layer.data(); }
    /// Whether there are traces to show.
    bool hasData() const { return _state.isLoaded; }
    /// Traces shown; 0 before the first load.
    int traceCount() const { return _state.isLoaded ? _headerAxis.traceCount() : 0; }
    SeismicPlot* seismicPlot() const { return _layer.plot(); }
    /// Null until an overlay was first loaded.
    SeismicData* overlayData() const { return _overlay.data(); }
    SeismicPlot* overlayPlot() const { return _overlay.plot(); }
    /// Lines at the steps of the top and left axes; all off at first.
    QwtPlotGrid* grid() const { return _grid; }
    parmmenu* menu() const { return _menu; }
    const QString& displayTitle() const { return _title; }
    /// In ms.
    float sampleRate() const { return _axes.sampleRate(); }
    float traceIncrement() const { return _axes.traceStep(); }
    /// In ms.
    float timeIncrement() const { return _axes.timeStep(); }
    const HeaderKeys& headerKeys() const { return _keys; }
    const HeaderAxis& headerAxis() const { return _headerAxis; }
    /// First sample kept of the input traces.
    int firstSample() const { return _axes.window().first; }
    /// Time of that sample in ms.
    double shiftTime() const { return _axes.shiftTime(); }
    bool lastEnsemble() const { return _state.isLast; }
    /// The last batch was the one on the screen already.
    bool isRepeated() const { return _state.isRepeated; }
    int windowNumber() const { return _windowNumber; }
    /// The line under the mouse at a position of the canvas; empty without data.
    QString readoutAt(const QPoint& pos) const;
    /// What that line must know of the data.
    ReadoutFrame readoutFrame() const;
    const QString& verticalName() const { return _axes.verticalName(); }
    /// The velocity marks while they are picked, else null.
    VelocityOverlay* activeVelocities() const;

    int timeDirection() const override { return _axes.timeDirection(); }
    bool isSlice() const override { return _axes.isSlice(); }
    /// Extent of the data on the vertical axis: ms, or the positions of a slice.
    double wholeHeight() const { return _axes.wholeHeight(); }
    /// Hands each trace shown on to the view's taps.
    void sendPickTraceChange(const float* trace, int start, int n, int tr) override;
    TraceTap* traceChanger() override;
    void traceOffsets(const SeismicData& data, int nTraces, float* offsets) const override;

    /// What the user says about the polarity of the data; the samples stay as they are.
    const Polarity& polarity() const { return _polarity; }
    /// Shows another statement.
    void setPolarity(const Polarity& polarity);
    /// The same for a statement that the user has just made, which listeners keep.
    void statePolarity(const Polarity& polarity);
    /// The record shown over the data, by its primary key; empty without an overlay in view.
    QString overlayRecord() const;

    bool eventFilter(QObject* object, QEvent* event) override;
    QSize minimumSizeHint() const override;

public slots:
    /// Also brings the line under the picture up to date.
    void replot() override;
    void catchZoom(const QRectF& rect);
    void catchPan(int dx, int dy);
    /// Brings the scroll bars up to what the axes show.
    void synchronizeScrollBars();
    void horizontalScrollerMoved(double from);
    void verticalScrollerMoved(double from);
    /// The same as showImage, for a picture counted from 1.
    void changeImage(int number) { showImage(number - 1); }

signals:
    /// A stored picture, counted from 1, is on the screen.
    void imageShown(int number);
    /// A new ensemble is on the screen.
    void ensembleShown();
    /// A box was drawn for a spectrum: traces and ms.
    void boxSelected(const QRectF& box);
    /// The user has said something about the polarity.
    void polarityStated(const Polarity& polarity);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    /// How far loading has come.
    struct LoadState {
        bool isFirst = true;      ///< the next ensemble is shown whole
        bool isLast = false;      ///< there was no further ensemble
        bool isRepeated = false;  ///< the last batch was on the screen already
        bool isLoaded = false;
    };

    void makeTools();
    void makeBars();
    void takeKeys();
    void takeDomain();
    void setTimeWindow();
    void setSliceAxis();
    TraceBatch batchOf(float** traces, int** heads, int n) const;
    bool takeTraces(float** traces, int** heads, int n);
    bool takeOverlay(float** traces, int** heads, int n, bool replot);
    bool measureTraces();
    void layOutTraces(bool replot);
    QSizeF panExtent() const;
    void limitPan();
    void setWholeAxes();
    void afterFirstLayout();
    QRect canvasRectangle() const;
    void showPictureLine();

    QString _title;
    DisplayHost* _host;  // lent, may be null
    int _windowNumber;
    StatusLines _lines;
    ZoomLink _zoomLink;
    EnsembleView* _view;  // children, as all that is made with new
    DisplayAxes _axes;
    TraceLayer _layer;
    OverlayLayer _overlay;
    HeaderAxis _headerAxis;
    QwtPlotGrid* _grid;  // attached to the plot, which deletes it
    ZoomTool* _zoom;
    AxisDrag* _axisDrag;
    PlotScrollBars* _scrollBars;
    CanvasTools* _tools = nullptr;  // while the canvas is being made, too, it has events
    PickerTools _pickers;
    BoxTool* _spectrumBox;
    VelocityClicks* _velocityClicks;
    ContextMenu _contextMenu;
    ImageRecorder _images{this};
    ImageTool _imageTool{this, &_lines};
    ReadoutTool _readoutTool{this, &_lines};
    HeaderStrip* _strip = nullptr;  // lent
    parmmenu* _menu = nullptr;      // lent
    HeaderKeys _keys;
    int _nth = 0;
    int _isTrevia = 1;
    LoadState _state;
    bool _isDifference = false;
    Polarity _polarity;
};

#endif
