/// Where readers and tools say what happened: the one edge at which errors turn into words.
#ifndef REPORT_H
#define REPORT_H

#include <string>

/// Takes the lines and boxes of a reader. Neither the reader nor a kernel prints or shows by itself.
class Report
{
public:
    virtual ~Report() = default;
    /// One or more lines for standard output, each with its own newline, as they stand.
    virtual void line(const std::string& text) = 0;
    /// An error for the user.
    virtual void box(const std::string& title, const std::string& text) = 0;
    /// One plain line, without newline, for a thing that was taken for granted or skipped.
    virtual void assumed(const std::string& text) { line(text + "\n"); }
};

/// Prints lines to standard output and flushes; a box becomes the line "TITLE: TEXT". For programs
/// without a window.
class PrintReport : public Report
{
public:
    void line(const std::string& text) override;
    void box(const std::string& title, const std::string& text) override;
};

#endif
