/// The dialog that asks for a record of an indexed SEG-Y file.
#ifndef SEGYRECDIALOG_H
#define SEGYRECDIALOG_H

#include "tracedata/wordnumber.h"

#include <QDialog>

class QComboBox;
class QLabel;
class QSpinBox;
class SegyLoader;

/// Asks for a sort and a primary value within its range; changes nothing itself. The loader is lent and outlives
/// it.
class SegyRecDialog : public QDialog
{
    Q_OBJECT

public:
    explicit SegyRecDialog(SegyLoader* loader, QWidget* parent = nullptr);

    /// The value sought.
    int prikey() const { return _prikey; }
    /// The sort code chosen; that of the loader until another one is.
    SortCode getSortKey() const { return _isort; }

public slots:
    void changePrimary(int index);
    void accept() override;

private:
    void showRange(int least, int largest);

    SegyLoader* _segyloader;
    QComboBox* _seekPriBox;
    QSpinBox* _seekSpin;
    QLabel* _minmaxLabel;
    int _prikey;
    SortCode _isort;
};

#endif
