/// What long work tells of its progress.
#ifndef PROGRESSSINK_H
#define PROGRESSSINK_H

#include <string>

/// Called on the thread that does the work.
class ProgressSink
{
public:
    virtual ~ProgressSink() = default;
    /// Title and text of the work, then its range; called once, before the first step.
    virtual void begin(const std::string& title, const std::string& label) = 0;
    virtual void setRange(int least, int largest) = 0;
    virtual void step(int value) = 0;
    /// True when the user wants the work to stop. Work that can't be cancelled doesn't ask.
    virtual bool cancelled() const { return false; }
};

#endif
