/// What the user says about the polarity of a file; never measured, and no sample ever changes by it.
#ifndef POLARITY_H
#define POLARITY_H

#include <QString>

class QSettings;

struct Polarity {
    enum Sense { Unknown, Normal, Reversed };

    Sense sense = Unknown;
    /// Whose convention the sense is meant by, as the user writes it, at most `longestConvention` characters.
    QString convention;

    static constexpr int longestConvention = 40;
};

bool operator==(const Polarity& a, const Polarity& b);

/// "unknown", "normal (SEG)", "reversed (convention not told)".
QString polarityText(const Polarity& polarity);

/// What was said about these data; unknown until something was.
/// @param files  a file, or a comma-separated list of which each counts; found again by whatever path leads to them
Polarity readPolarity(const QSettings& settings, const QString& files);
/// Keeps the statement for these data; an unknown polarity is forgotten.
void writePolarity(QSettings* settings, const QString& files, const Polarity& polarity);

#endif
