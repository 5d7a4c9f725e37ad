#include "FakeCore.h"
#include "QIfModuleMainView.h"
#include "condition/ConditionRecord.h"

#include <QApplication>
#include <QLabel>
#include <QShowEvent>

#include <cstdlib>

namespace {

struct Host
{
    Host()
    {
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
        core.runParams[QStringLiteral("LogicalMode")] = "1";
    }

    int argc = 1;
    char name[5] = "fuzz";
    char* argv[2] = {name, nullptr};
    QApplication application{argc, argv};
    FakeCore core;
    QIfModuleMainView panel{7, nullptr};
};

} // namespace

// A panel that loads the bytes shows all of their conditions, and stores them again without a fault.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static Host& host = *new Host; // for the process, as the application object has to be
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<int>(size));
    host.core.binaryData[QStringLiteral("IFText")] = bytes;
    QShowEvent show;
    QApplication::sendEvent(&host.panel, &show);
    const auto conditions = StoredCondition::fromText(QString::fromUtf8(bytes.constData()));
    if (host.panel.findChildren<QLabel*>(QStringLiteral("m_labName")).size() != conditions.size()) {
        std::abort();
    }
    host.panel.onLogicValueChanged2SetParam();
    host.core.takeCommands();
    return 0;
}
