/// A bar under the screens that offers an index, and tells how far one is.
#ifndef INDEXBAR_H
#define INDEXBAR_H

#include <QFrame>
#include <QPointer>

class QLabel;
class QProgressBar;
class QPushButton;
class QTimer;
class SegyLoader;

/// Hidden while there is nothing to offer or to tell. Builds nothing by itself but through its loader.
class IndexBar : public QFrame
{
    Q_OBJECT

public:
    explicit IndexBar(QWidget* parent = nullptr);

    /// The loader whose index is meant; it may go at any time. Hides the bar.
    void setLoader(SegyLoader* loader);
    /// Offers to build the index; nothing where there is one, or one is under way.
    void offer();

private:
    void build();
    void showShare();
    void showBuild();

    QLabel* _textLabel;
    QProgressBar* _shareBar;
    QPushButton *_buildButton, *_laterButton, *_stopButton;
    QTimer* _timer;
    QPointer<SegyLoader> _loader;
};

#endif
