/// The font of header tables, and the pages that hold nothing but a text in it.
#ifndef FIXEDFONT_H
#define FIXEDFONT_H

#include <QFont>

class QPlainTextEdit;
class QString;
class QWidget;

/// "Courier", or where that is missing another one in which all characters are equally wide.
QFont fixedFont();
/// Fills a page with a read-only text in that font, which takes the page's focus and belongs to it.
QPlainTextEdit* fillWithText(QWidget* page, const QString& tip);

#endif
