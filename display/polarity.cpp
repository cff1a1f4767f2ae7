#include "display/polarity.h"

#include <QCryptographicHash>
#include <QFileInfo>
#include <QSettings>
#include <QStringList>

static const char* const senseNames[] = {"unknown", "normal", "reversed"};

static QString tidied(const QString& convention)
{
    return convention.simplified().left(Polarity::longestConvention).trimmed();
}

bool operator==(const Polarity& a, const Polarity& b)
{
    return a.sense == b.sense && a.convention == b.convention;
}

QString polarityText(const Polarity& polarity)
{
    QString sense = senseNames[polarity.sense];
    if (polarity.sense == Polarity::Unknown) return sense;
    const QString convention = tidied(polarity.convention);
    return sense + (convention.isEmpty() ? QString(" (convention not told)") : " (" + convention + ")");
}

/// A key without the separators of settings, whatever stands in a file's name.
static QString keyOf(const QString& files)
{
    QStringList paths;
    for (const QString& file : files.split(',')) {
        const QFileInfo info(file.trimmed());
        const QString canonical = info.canonicalFilePath();
        paths += canonical.isEmpty() ? info.absoluteFilePath() : canonical;
    }
    const QByteArray hash = QCryptographicHash::hash(paths.join('\n').toUtf8(), QCryptographicHash::Sha1);
    return "polarity/" + QString::fromLatin1(hash.toHex());
}

Polarity readPolarity(const QSettings& settings, const QString& files)
{
    const QStringList stored = settings.value(keyOf(files)).toStringList();
    Polarity polarity;
    if (stored.size() != 2) return polarity;
    for (const Polarity::Sense sense : {Polarity::Normal, Polarity::Reversed})
        if (stored[0] == senseNames[sense]) polarity = {sense, tidied(stored[1])};
    return polarity;
}

void writePolarity(QSettings* settings, const QString& files, const Polarity& polarity)
{
    if (polarity.sense == Polarity::Unknown)
        settings->remove(keyOf(files));
    else
        settings->setValue(keyOf(files), QStringList{senseNames[polarity.sense], tidied(polarity.convention)});
}
