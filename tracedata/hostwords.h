/// The host's header lists, of the running flow and of a dataset, as lists of header words.
#ifndef HOSTWORDS_H
#define HOSTWORDS_H

#include "tracedata/headerwords.h"

/// The list of the running flow.
class FlowWords : public HeaderWords
{
public:
    HeaderWordInfo word(const QString& name) const override;
    QString name(WordFrom0 word) const override;
    int count() const override;
};

/// The list of a dataset, by its handle; with a handle that the host doesn't know, a list without words.
class DatasetWords : public HeaderWords
{
public:
    explicit DatasetWords(int handle) : _handle(handle) {}
    int handle() const { return _handle; }
    HeaderWordInfo word(const QString& name) const override;
    QString name(WordFrom0 word) const override;
    int count() const override;

private:
    int _handle;
};

#endif
