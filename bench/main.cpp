#include "Comparison.h"
#include "comparisons.h"

#include <QApplication>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    // As a host would that keeps no debug lines: composing them still costs.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    addPanelComparisons();
    addSelecterComparisons();
    return runComparisons(argc, argv) ? 0 : 1;
}
