/// The plot widget of one screen: an ensemble with its axes, read-out, zoom and pan.
#ifndef SEISMICDISPLAY_H
#define SEISMICDISPLAY_H

#include "display/axisstep.h"
#include "display/ensemblecopy.h"
#include "display/headeraxis.h"
#include "display/imagerecorder.h"
#include "display/mousemode.h"
#include "display/myqwtplot.h"
#include "display/plotowner.h"
#include "display/polarity.h"
#include "display/zoomlink.h"
#include "tracedata/orvinconstants.h"

#include <QString>

#include <memory>

class AxisDrag;
class ColorBarFrame;
class DisplayHost;
class DisplayList;
class ImageStorage;
class MyQwtPlotMagnifier;
class MyQwtPlotPanner;
class MyQwtPlotZoomer;
class PlotScrollBars;
class QStatusBar;
class QwtPlotGrid;
class RecordAxisScaleDraw;
class SeismicAxisScaleDraw;
class SeismicData;
class SeismicPlot;
struct parmmenu;

/// Takes batches of traces, keeps its own copy, and shows it.
///
/// The display owns its data, raster item, axes and mouse tools; the parameter record, the colour bar, the
/// status bars and the host are lent and outlive it. Main thread only.
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

    /// Shows a batch of n traces with their header words, copied before this returns. Returns 0, or 1
    /// when memory ran out, said on standard output; the old data then stay in view. With n below 1 the
    /// old data stay too.
    int loadSeismicData(float** traces, int** heads, int n, bool replot);
    /// Only copies the batch. Returns 1, or 0 when memory ran out.
    int loadTraces(float** traces, int** heads, int n);
    /// Shows a batch over the data on the screen, translucent, in colours of its own. Always 0, or 1 when memory
    /// ran out.
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
    void setAxisTitle(const QString& text);
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
    void setTimeZoom(bool timeOnly, bool traceOnly);
    /// Zooms to a rectangle in scale units: traces and ms.
    void setZoomRect(const QRectF& rect);
    /// Back to what is shown without a zoom, this display only.
    void resetZoom(int index);
    /// The whole data become the base; what the axes show is where going back ends.
    void setZoomBase();
    QRectF zoomBase() const;
    /// What is shown without a zoom: the base, or the part of it that a fixed spacing shows.
    QRectF restRect() const;
    /// What the axes show, traces and ms.
    QRectF visibleRect() const;
    /// Sets the axes; the zoom's stack stays, nothing is replotted.
    void setVisibleRect(const QRectF& rect);
    bool isZoomed() const;
    bool isPanned() const;
    /// Moves the picture down by pixels.
    void panVertically(int dy);
    bool hasHorizontalBar() const;
    /// Leaves room for the bar of a display beside this one, so that their times stand in line.
    void reserveHorizontalBar(bool on);
    /// Pixels that the labels of the vertical axes take below the canvas.
    int roomBelowCanvas() const;
    /// Leaves so many more pixels free below the canvas, so that times are in line with a sister's.
    void reserveBelow(int nPixels);

    /// Turns a mouse mode on or off; off is zooming.
    void setMouseMode(MouseMode mode, bool on);
    void setSPicker(bool on) { setMouseMode(MouseMode::Spectrum, on); }
    void setHPicker(bool on) { setMouseMode(MouseMode::Headers, on); }
    void setVelPicker(bool on) { setMouseMode(MouseMode::Velocity, on); }
    void setGatPicker(bool on) { setMouseMode(MouseMode::Gates, on); }
    void setFBPicker(bool on) { setMouseMode(MouseMode::FirstBreaks, on); }
    void setMovPicker(bool on) { setMouseMode(MouseMode::Moveout, on); }
    /// The mode of the tool bar: 0 zoom, 1 spectrum, 2 headers, -1 none of them; then a picker keeps the mouse.
    void showDisplay(int mode);
    MouseMode mouseMode() const { return _mouseMode; }
    void setControlLabel(const QString& text);
    /// Adds to the status line until the next read-out.
    void addMessage(const QString& text);

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
    RecordAxisScaleDraw* recordAxis() const { return _recordaxis; }

    SeismicData* seismicData() const { return _seismicdata.get(); }
    /// Traces shown; 0 before the first load.
    int traceCount() const { return _loadTraces ? _headerAxis.traceCount() : 0; }
    SeismicPlot* seismicPlot() const { return _seismicplot; }
    /// Null until an overlay was first loaded.
    SeismicData* overlayData() const { return _overlaydata.get(); }
    SeismicPlot* overlayPlot() const { return _overlayplot; }
    /// Lines at the steps of the top and left axes; all off at first.
    QwtPlotGrid* grid() const { return _grid; }
    parmmenu* menu() const { return _menu; }
    const QString& displayTitle() const { return _title; }
    /// In ms.
    float sampleRate() const { return _samprat; }
    float traceIncrement() const { return _traceIncr; }
    /// In ms.
    float timeIncrement() const { return _timeIncr; }
    const HeaderKeys& headerKeys() const { return _keys; }
    const HeaderAxis& headerAxis() const { return _headerAxis; }
    /// First sample kept of the input traces.
    int firstSample() const { return _stime; }
    /// Time of that sample in ms.
    double shiftTime() const { return _shiftTime; }
    bool lastEnsemble() const { return _lastEnsemble; }
    /// The last batch was the one on the screen already.
    bool isRepeated() const { return _isRepeated; }
    int windowNumber() const { return _windowNumber; }
    /// The line under the mouse at a position of the canvas; empty without data.
    QString readoutAt(const QPoint& pos) const;

    int timeDirection() const override { return _timeDirection; }
    bool isSlice() const override;
    /// Extent of the data on the vertical axis: ms, or the positions of a slice.
    double wholeHeight() const;
    void sendPickTraceChange(const float* trace, int start, int n, int tr) override;
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
    /// The user has said something about the polarity.
    void polarityStated(const Polarity& polarity);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void makeOverlay();
    void measureOverlay();
    void makeAxes(bool enableLeft, bool enableRight);
    void makeGrid();
    void makeMouseTools();
    void takeKeys();
    void setTimeWindow();
    void setTimeAxis();
    void setSliceAxis();
    QSizeF panExtent() const;
    AxisRule traceRule() const;
    AxisRule timeRule() const;
    void relayAxes();
    void limitPan();
    void showImageAgain();
    void showPictureLine();
    void forgetTitle();
    bool trackImage(QEvent* event);
    void setWholeAxes();
    void afterFirstLayout();
    QRectF canvasRectangle() const;

    QString _title;
    QStatusBar* _statusbar;
    QStatusBar* _controlStatus;
    DisplayHost* _host;
    ZoomLink _zoomLink;
    int _windowNumber;

    MyQwtPlotZoomer* _zoomer[2];  // top and left axes, bottom and right axes
    MyQwtPlotPanner* _panner;
    MyQwtPlotMagnifier* _magnifier;
    AxisDrag* _axisDrag;
    PlotScrollBars* _scrollBars;
    RecordAxisScaleDraw* _recordaxis;  // owned by the axes
    SeismicAxisScaleDraw* _seismicaxisl;
    SeismicAxisScaleDraw* _seismicaxisr;

    std::unique_ptr<SeismicData> _seismicdata;
    EnsembleCopy _copy;
    HeaderAxis _headerAxis;
    SeismicPlot* _seismicplot;  // attached to the plot, which deletes it
    std::unique_ptr<SeismicData> _overlaydata;
    EnsembleCopy _overlayCopy;
    SeismicPlot* _overlayplot = nullptr;  // attached to the plot, which deletes it
    bool _lastOverlay = false;            // the last batch was an overlay
    QwtPlotGrid* _grid;                   // the same
    parmmenu* _menu = nullptr;  // lent

    float _samprat = 2.0f;  // ms
    int _numsmp = 0;        // samples kept of each trace
    int _nth = 0;
    int _maxdtr = 0;
    int _istack = 0;
    bool _isStacked = false;
    HeaderKeys _keys;
    int _iskeymod = 0, _iskeyinc = 1;
    float _timeIncr = 500.0f;   // ms
    float _traceIncr = 1.0f;
    bool _isTimeIncrTyped = false, _isTraceIncrTyped = false;
    float _traceIncrMult = 1.0f;
    int _isTrevia = 1;
    bool _firstTime = true;
    bool _lastEnsemble = false;
    bool _isRepeated = false;
    bool _loadTraces = false;
    int _stime = 0, _etime = 0;  // samples
    float _dstime = 1.0f;
    double _shiftTime = 0.0;     // ms
    double _panTraces = 0.0, _panSamples = 0.0;
    int _idomain = 0;
    QString _ctaxis;
    int _timeDirection = 1;
    float _sliceTime = 0.0f;
    bool _zoomState = true;
    bool _timeZoomOnly = false, _traceZoomOnly = false;
    MouseMode _mouseMode = MouseMode::Zoom;
    bool _isDifference = false;
    ImageRecorder _images{this};
    int _nShownAgain = 0;       // for changes of the canvas since the picture was chosen
    int _imageTrackerOldX = 0;  // where the middle button was last seen on a stored picture
    QString _messageMain, _messageAdd;
    Polarity _polarity;
};

#endif
