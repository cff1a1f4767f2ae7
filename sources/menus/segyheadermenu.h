/// The tab of the trace headers.
#ifndef SEGYHEADERMENU_H
#define SEGYHEADERMENU_H

#include <QFont>
#include <QPointer>
#include <QWidget>

#include <vector>

class QLabel;
class QPlainTextEdit;
class QRadioButton;
class QSpinBox;
class QStackedWidget;
class SegyLoader;
class SegyVaryingView;

/// Browses the trace headers of the file on screen by its index, without moving the place from which the next
/// ensemble is read. The loader is lent and may go at any time.
class SegyHeaderMenu : public QWidget
{
    Q_OBJECT

public:
    explicit SegyHeaderMenu(QWidget* parent = nullptr);
    void newLoader(SegyLoader* loader);
    /// Shows the present trace. False, with a box, when there is data but no index.
    bool openTraceTab();

    /// Tells below the ranking what became of a row that was taken.
    void showTakenRow(const QString& answer);

signals:
    /// A word of the trace headers shall go into a header word; byte from 1.
    void remapRowTaken(const QString& word, const QString& format, int startByte);

public slots:
    /// Reads the present trace anew, after a new file the first one.
    void loadHeader();
    void changeHeader(int trace);

private:
    QWidget* makeControls();
    void changeMethod(int method);
    void startFile();
    void rankHeaders();

    QPointer<SegyLoader> _segyloader;
    QStackedWidget* _viewStack;
    QPlainTextEdit* _textEdit;
    SegyVaryingView* _varyingView;
    QSpinBox* _spinBox;
    QRadioButton *_radio1, *_radio2, *_radio3, *_radio4, *_radio5, *_radio6;
    QLabel* _trcLabel;
    int _istart = 1, _iend = 0, _icurrent = 1;  // traces from 1
    int _method = 0;
    std::vector<int> _idata;  // one raw trace
    bool _newLoad = true;
    bool _isRanked = false;  // the ranking is that of the present map
    QFont _tfont;
};

#endif
