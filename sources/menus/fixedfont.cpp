#include "sources/menus/fixedfont.h"

#include <QApplication>
#include <QPlainTextEdit>
#include <QVBoxLayout>

QFont fixedFont()
{
    QFont font("Courier");
    font.setStyleHint(QFont::TypeWriter);
    font.setFixedPitch(true);
    font.setPointSizeF(QApplication::font().pointSizeF());
    return font;
}

QPlainTextEdit* fillWithText(QWidget* page, const QString& tip)
{
    auto* edit = new QPlainTextEdit;
    edit->setObjectName("textEdit");
    edit->setFont(fixedFont());
    edit->setLineWrapMode(QPlainTextEdit::NoWrap);
    edit->setReadOnly(true);
    edit->setToolTip(tip);
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(edit);
    page->setFocusProxy(edit);
    return edit;
}
