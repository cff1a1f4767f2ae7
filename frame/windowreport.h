/// The window's edge for errors: lines go to standard output, boxes to the user.
#ifndef WINDOWREPORT_H
#define WINDOWREPORT_H

#include "host/report.h"

class QWidget;

/// Main thread only; the parent is lent and outlives this.
class WindowReport : public PrintReport
{
public:
    explicit WindowReport(QWidget* parent) : _parent(parent) {}
    void box(const std::string& title, const std::string& text) override;

private:
    QWidget* _parent;
};

#endif
