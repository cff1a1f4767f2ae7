/// The browser inside the help window.
#ifndef HELPBROWSER_H
#define HELPBROWSER_H

#include <QTextBrowser>

/// A text browser that shows pictures no wider than a page of text, scaled smoothly and sharp on dense screens:
/// a document by itself draws a wide picture over its edge, or scales it to steps.
class HelpBrowser : public QTextBrowser
{
    Q_OBJECT

public:
    static constexpr int widestPicture = 700;  ///< logical pixels

    explicit HelpBrowser(QWidget* parent = nullptr);

    QVariant loadResource(int type, const QUrl& name) override;
};

#endif
