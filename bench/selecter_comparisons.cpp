#include "Comparison.h"
#include "Painting.h"
#include "SubscribeMenu.h"

#include <QZelCommonControl/ButtonSelecterView.h>
#include <QZelCommonControl/QmlRangeSliderView.h>

#include <QQuickWidget>
#include <QQuickWindow>
#include <QStringListModel>
#include <QToolButton>
#include <QTreeView>

#include <memory>

using namespace ZelCore;

namespace {

/// A module with so many values.
SUBSCRIBE_NODE__ treeOf(int values)
{
    SUBSCRIBE_NODE__ module;
    module.CreateList(static_cast<UInt>(values));
    for (int i = 0; i < values; ++i) {
        SUBSCRIBE_NODE__& node = module.At(i);
        std::snprintf(node.NodeName, sizeof node.NodeName, "Value%d", i);
        std::snprintf(node.SubscribeName, sizeof node.SubscribeName, "5.Value%d", i);
    }
    return module;
}

/// A flat list of the values in a bare view.
Round openList(int values)
{
    const auto main = std::make_shared<QWidget>();
    main->show();
    return [main, tree = treeOf(values)] {
        QTreeView view;
        return timed([&] {
            Painting painting(*main, Painting::Where::Elsewhere);
            QStringList labels;
            for (UInt i = 0; i < tree.Num(); ++i) {
                labels << ToQString(TextOf(tree.Items()[i].NodeName));
            }
            view.setWindowFlags(Qt::Tool | Qt::FramelessWindowHint);
            view.setModel(new QStringListModel(labels, &view));
            view.setHeaderHidden(true);
            view.resize(320, 330);
            view.show();
            painting.wait();
        });
    };
}

/// From the click to the menu, the core's tree included.
Round openSelecter(int values)
{
    const auto main = std::make_shared<QWidget>();
    main->resize(200, 60);
    main->show();
    return [main, tree = treeOf(values)] {
        ButtonSelecterView selecter(main.get());
        QObject::connect(&selecter, &ButtonSelecterView::sigQuerySubscribeMenuInfo, &selecter, [&] {
            QJsonObject module;
            SubscribeMenu::ParseTreeNode(tree, module, 1);
            QJsonArray menu{module};
            selecter.UpdateSubscribeMenuData(menu, 0);
        });
        selecter.SetFixedSize(100, 30);
        selecter.show();
        QApplication::processEvents();
        auto* const button = selecter.findChild<QToolButton*>();
        const double seconds = timed([&] {
            Painting painting(*main, Painting::Where::Elsewhere);
            button->click();
            painting.wait();
        });
        selecter.SetHide();
        return seconds;
    };
}

std::unique_ptr<QWidget> bareSlider()
{
    QQuickWindow::setSceneGraphBackend(QSGRendererInterface::Software);
    auto view = std::make_unique<QQuickWidget>();
    view->setWindowFlags(Qt::Tool | Qt::FramelessWindowHint);
    view->setAttribute(Qt::WA_ShowWithoutActivating);
    view->setResizeMode(QQuickWidget::SizeRootObjectToView);
    view->setClearColor(Qt::white);
    view->setSource(QUrl(QStringLiteral("qrc:/QZelCommonControl/QmlRangeSliderView.qml")));
    return view;
}

template <typename Maker>
double firstOpening(Maker make)
{
    QWidget main;
    main.show();
    QApplication::processEvents();
    std::unique_ptr<QWidget> widget;
    return timed([&] {
        Painting painting(main, Painting::Where::Elsewhere);
        widget = make();
        widget->resize(230, 25);
        widget->show();
        painting.wait();
    });
}

} // namespace

void addSelecterComparisons()
{
    for (const int values : {100, 1000, 10000}) {
        compare({"open a menu/" + std::to_string(values), 0.0, [values] { return openList(values); },
                 [values] { return openSelecter(values); }, 20});
    }
    Round bareFirst = inFreshProcess("slider-floor", [] { return firstOpening(bareSlider); });
    Round first = inFreshProcess(
        "slider", [] { return firstOpening([] { return std::make_unique<QmlRangeSliderView>(); }); });
    compare(
        {"first slider of a process", 1.2, [bareFirst] { return bareFirst; }, [first] { return first; }, 6});
}
