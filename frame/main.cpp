#include <QApplication>

#include <clocale>

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    std::setlocale(LC_NUMERIC, "C");  // the file and status formats have points, whatever the user's locale
    return 0;
}
