#pragma once

#include "core_client/ZelException.h"

#include <QApplication>

/// The application object of a host that outlives what a panel's slots throw.
class HostApplication : public QApplication
{
public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override
    {
        try {
            return QApplication::notify(receiver, event);
        } catch (const ZelCommon::ZelException&) {
            ++exceptions;
        }
        return true;
    }

    inline static int exceptions = 0;
};

/// The main function of a test program with a host's application object.
#define HOST_TEST_MAIN(TestClass)                                                                            \
    int main(int argc, char** argv)                                                                          \
    {                                                                                                        \
        HostApplication application(argc, argv);                                                             \
        TestClass test;                                                                                      \
        return QTest::qExec(&test, argc, argv);                                                              \
    }
