/// The window's edge for errors: lines go to standard output, boxes to the user.
#ifndef WINDOWREPORT_H
#define WINDOWREPORT_H

#include "host/report.h"

#include <QString>

#include <functional>

class QWidget;

/// Main thread only; the parent is lent and outlives this.
class WindowReport : public PrintReport
{
public:
    explicit WindowReport(QWidget* parent) : _parent(parent) {}
    void box(const std::string& title, const std::string& text) override;
    void line(const std::string& text) override;
    void assumed(const std::string& text) override;

    /// Hears each thing that was taken for granted, besides standard output.
    std::function<void(const QString&)> onAssumed;

private:
    QWidget* _parent;
};

#endif
