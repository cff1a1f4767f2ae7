/// Progress of long work in a window-modal dialog without a cancel button.
#ifndef DIALOGPROGRESS_H
#define DIALOGPROGRESS_H

#include "host/progresssink.h"

#include <memory>

class QProgressDialog;
class QWidget;

/// Main thread only. Each step lets paint events through and nothing else, so that no key or click
/// reaches what the work is changing.
class DialogProgress : public ProgressSink
{
public:
    explicit DialogProgress(QWidget* parent);
    ~DialogProgress() override;

    void begin(const std::string& title, const std::string& label) override;
    void setRange(int least, int largest) override;
    void step(int value) override;
    /// Takes the dialog away: the work is done. The next begin makes another.
    void close();

private:
    QWidget* _parent;
    std::unique_ptr<QProgressDialog> _dialog;
};

#endif
