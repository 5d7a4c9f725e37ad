#include "FakeCore.h"
#include "QIfModuleMainView.h"

#include <QApplication>
#include <QLabel>
#include <QShowEvent>

// A panel shows a row for each entry of any list, and what it has stored once it loads and stores unchanged;
// outside ASCII the end is cut each time.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static int argc = 1;
    static char name[] = "fuzz";
    static char* argv[] = {name, nullptr};
    // For the process, as the application object has to be.
    [[maybe_unused]] static const auto* const application = new QApplication(argc, argv);
    static auto& core = *new FakeCore;
    static auto& panel = *new QIfModuleMainView(7, nullptr);
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});

    QByteArray& list = core.parameters["IFText"];
    const auto loadAndStore = [&] {
        QShowEvent show;
        QApplication::sendEvent(&panel, &show);
        panel.onLogicValueChanged2SetParam();
        core.takeCommands();
    };
    list = QByteArray(reinterpret_cast<const char*>(data), static_cast<int>(size));
    const auto pieces = QString::fromUtf8(list.constData()).split(';');
    const auto entries =
        std::count_if(pieces.cbegin(), pieces.cend(), [](auto& p) { return p.count(':') >= 3; });
    loadAndStore();
    const QByteArray once = list;
    const int rows = panel.findChildren<QLabel*>("m_labName").size();
    loadAndStore();
    if (rows != entries || (list != once && QString::fromUtf8(once).toLatin1() == once)) {
        std::abort();
    }
    return 0;
}
