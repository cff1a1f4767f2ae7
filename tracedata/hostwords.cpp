#include "tracedata/hostwords.h"

#include "host/dataset/hdr.h"
#include "host/flow/stheader.h"

constexpr size_t nameLength = 8;

/// Words stand one behind the other, so that the first position without one is the count.
static int countOf(const HeaderWords& words)
{
    int i = 0;
    for (QString name = words.name(WordFrom0(0)); !name.isEmpty(); name = words.name(WordFrom0(i)))
        i += words.length(name);
    return i;
}

HeaderWordInfo FlowWords::word(const QString& name) const
{
    const QByteArray text = name.toLatin1();
    return {WordFrom0(stHdrIndex(text.constData())), stHdrFormat(text.constData()), stHdrLength(text.constData()),
            stHdrExists(text.constData()), QString::fromLatin1(stHdrDesc(text.constData()))};
}

QString FlowWords::name(WordFrom0 word) const
{
    return QString::fromLatin1(stHdrIndexName(word.value));
}

int FlowWords::count() const
{
    return countOf(*this);
}

HeaderWordInfo DatasetWords::word(const QString& name) const
{
    HeaderWordInfo info;
    std::string description;
    int position = 0, status = 1;
    hdr_naminfo__(_handle, name.toLatin1().constData(), &description, &info.length, &info.format, &position, &status);
    info.index = from0(WordFrom1(position));
    info.exists = status == 0;
    info.description = QString::fromStdString(description);
    return info;
}

QString DatasetWords::name(WordFrom0 word) const
{
    std::string name, description;
    int length = 0, format = 0, status = 1;
    hdr_indinfo_(_handle, from1(word).value, &name, &description, &length, &format, &status);
    return QString::fromStdString(name.substr(0, nameLength));
}

int DatasetWords::count() const
{
    return countOf(*this);
}
