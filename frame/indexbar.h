/// A bar under the screens that offers an index, and tells how far one is.
#ifndef INDEXBAR_H
#define INDEXBAR_H

#include <QFrame>
#include <QPointer>

class EnsembleSource;
class QLabel;
class QProgressBar;
class QPushButton;
class QTimer;

/// Hidden while there is nothing to offer or to tell. Builds nothing by itself but through its source.
class IndexBar : public QFrame
{
    Q_OBJECT

public:
    explicit IndexBar(QWidget* parent = nullptr);

    /// The source whose index is meant, or none; it may go at any time. Hides the bar, unless an index of it is being
    /// built.
    void setSource(EnsembleSource* source);
    /// Offers to build the index; nothing where there is one, or one is under way.
    void offer();

private:
    void build();
    void showShare();
    void showBuild();
    void rest();

    QLabel* _textLabel;
    QProgressBar* _shareBar;
    QPushButton *_buildButton, *_laterButton, *_stopButton;
    QTimer* _timer;
    QPointer<EnsembleSource> _source;
};

#endif
