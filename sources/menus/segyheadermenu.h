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
class SegyLoader;

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

public slots:
    /// Reads the present trace anew, after a new file the first one.
    void loadHeader();
    void changeHeader(int trace);

private:
    QWidget* makeControls();
    void changeMethod(int method);
    void startFile();

    QPointer<SegyLoader> _segyloader;
    QPlainTextEdit* _textEdit;
    QSpinBox* _spinBox;
    QRadioButton *_radio1, *_radio2, *_radio3, *_radio4, *_radio5;
    QLabel* _trcLabel;
    int _istart = 1, _iend = 0, _icurrent = 1;  // traces from 1
    int _method = 0;
    std::vector<int> _idata;  // one raw trace
    bool _newLoad = true;
    QFont _tfont;
};

#endif
