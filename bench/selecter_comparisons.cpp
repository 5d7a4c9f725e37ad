#include "Comparison.h"
#include "Painting.h"
#include "SubscribeMenu.h"
#include "comparisons.h"

#include <QZelCommonControl/ButtonSelecterView.h>
#include <QZelCommonControl/QmlRangeSliderView.h>

#include <QQuickWidget>
#include <QQuickWindow>
#include <QStringListModel>
#include <QToolButton>
#include <QTreeView>

#include <memory>
#include <stdexcept>

using namespace ZelCore;

namespace {

constexpr int leavesPerGroup = 9; // and the group itself: a tenth node

void fill(SUBSCRIBE_NODE__& node, const char* name, int number)
{
    node.ModuleID = 5;
    std::snprintf(node.NodeName, sizeof node.NodeName, "%s%d", name, number);
    std::snprintf(node.SubscribeName, sizeof node.SubscribeName, "5.%s%d", name, number);
}

/// A module with as many nodes under it, in groups.
SUBSCRIBE_NODE__ treeOf(int nodes)
{
    SUBSCRIBE_NODE__ module;
    fill(module, "Measure", 0);
    module.CreateList(static_cast<UInt>(nodes / (leavesPerGroup + 1)));
    for (UInt i = 0; i < module.Num(); ++i) {
        SUBSCRIBE_NODE__& group = module.Items()[i];
        fill(group, "Object", static_cast<int>(i));
        group.CreateList(leavesPerGroup);
        for (UInt leaf = 0; leaf < leavesPerGroup; ++leaf) {
            fill(group.Items()[leaf], "Value", static_cast<int>(i * leavesPerGroup + leaf));
        }
    }
    return module;
}

/// The texts of a tree, ready for its menu.
struct Texts
{
    explicit Texts(const SUBSCRIBE_NODE__& node)
        : label(ToQString(TextOf(node.NodeName)))
        , subscribeName(ToQString(TextOf(node.SubscribeName)))
    {
        for (UInt i = 0; i < node.Num(); ++i) {
            children.emplace_back(node.Items()[i]);
        }
    }
    QString label;
    QString subscribeName;
    std::vector<Texts> children;
};

QJsonObject menuOf(const Texts& texts, int level)
{
    QJsonArray subnodes;
    for (const Texts& child : texts.children) {
        if (child.children.empty()) {
            subnodes.append(QJsonObject{{QStringLiteral("isTitle"), false},
                                        {QStringLiteral("label"), child.label},
                                        {QStringLiteral("level"), level + 1},
                                        {QStringLiteral("subscribeName"), child.subscribeName}});
        } else {
            subnodes.append(menuOf(child, level + 1));
        }
    }
    return {{QStringLiteral("isTitle"), true},
            {QStringLiteral("label"), texts.label},
            {QStringLiteral("level"), level},
            {QStringLiteral("subnodes"), subnodes}};
}

Round parseTree(int nodes, int times)
{
    const auto tree = std::make_shared<SUBSCRIBE_NODE__>(treeOf(nodes));
    return [tree, times] {
        std::vector<QJsonObject> menus(static_cast<std::size_t>(times));
        return timed([&] {
            for (QJsonObject& menu : menus) {
                SubscribeMenu::ParseTreeNode(*tree, menu, 1);
            }
        });
    };
}

Round buildMenu(int nodes)
{
    auto texts = std::make_shared<Texts>(treeOf(nodes));
    texts->label.prepend(QStringLiteral("5 "));
    QJsonObject subject;
    SubscribeMenu::ParseTreeNode(treeOf(nodes), subject, 1);
    if (menuOf(*texts, 1) != subject) {
        throw std::logic_error("the two menus differ");
    }
    return [texts] {
        QJsonObject menu;
        return timed([&] { menu = menuOf(*texts, 1); });
    };
}

QJsonArray menuWith(int leaves)
{
    QJsonObject menu;
    SubscribeMenu::ParseTreeNode(treeOf(leaves * (leavesPerGroup + 1) / leavesPerGroup), menu, 1);
    return {menu};
}

/// What of a menu a flat list shows.
void collectLabels(const QJsonArray& entries, QStringList& labels)
{
    for (const QJsonValue& value : entries) {
        const QJsonObject entry = value.toObject();
        const QJsonArray subnodes = entry.value(QLatin1String("subnodes")).toArray();
        if (subnodes.isEmpty()) {
            labels << entry.value(QLatin1String("label")).toString();
        } else {
            collectLabels(subnodes, labels);
        }
    }
}

Round openTree(int leaves)
{
    const auto main = std::make_shared<QWidget>();
    main->show();
    return [main, menu = menuWith(leaves)] {
        QTreeView view;
        return timed([&] {
            Painting painting(*main, Painting::Where::Elsewhere);
            QStringList labels;
            collectLabels(menu, labels);
            view.setWindowFlags(Qt::Tool | Qt::FramelessWindowHint);
            view.setModel(new QStringListModel(labels, &view));
            view.setHeaderHidden(true);
            view.resize(320, 330);
            view.show();
            painting.wait();
        });
    };
}

Round openSelecter(int leaves)
{
    const auto main = std::make_shared<QWidget>();
    main->resize(200, 60);
    main->show();
    return [main, menu = menuWith(leaves)]() mutable {
        ButtonSelecterView selecter(main.get());
        QObject::connect(&selecter, &ButtonSelecterView::sigQuerySubscribeMenuInfo, &selecter,
                         [&] { selecter.UpdateSubscribeMenuData(menu, 0); });
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

std::unique_ptr<QWidget> slider()
{
    return std::make_unique<QmlRangeSliderView>();
}

using Maker = std::unique_ptr<QWidget> (*)();

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

RoundMaker furtherOpening(Maker make)
{
    return [make] {
        const auto main = std::make_shared<QWidget>();
        main->show();
        const std::shared_ptr<QWidget> widget = make();
        widget->resize(230, 25);
        widget->show();
        QApplication::processEvents();
        return [main, widget] {
            widget->hide();
            QApplication::processEvents();
            return timed([&] {
                Painting painting(*main, Painting::Where::Elsewhere);
                widget->show();
                painting.wait();
            });
        };
    };
}

} // namespace

void addSelecterComparisons()
{
    for (const int nodes : {100, 1000, 10000, 100000}) {
        compare({"tree to menu/" + std::to_string(nodes), nodes == 100000 ? 1.25 : 0.0,
                 [nodes] { return buildMenu(nodes); }, [nodes] { return parseTree(nodes, 1); }, 20,
                 Unit::Time, true});
    }
    compare({"tree: ten of 10^4, one of 10^5", 1.25, [] { return parseTree(10000, 10); },
             [] { return parseTree(100000, 1); }, 20, Unit::Time, true});
    for (const int leaves : {99, 999, 9999}) {
        compare({"open a menu/" + std::to_string(leaves), leaves == 9999 ? 1.5 : 0.0,
                 [leaves] { return openTree(leaves); }, [leaves] { return openSelecter(leaves); }, 20});
    }
    Round bareFirst = inFreshProcess("slider-floor", [] { return firstOpening(bareSlider); });
    Round first = inFreshProcess("slider", [] { return firstOpening(slider); });
    compare(
        {"first slider of a process", 1.2, [bareFirst] { return bareFirst; }, [first] { return first; }, 6});
    compare({"first opening of another", 1.2, [] { return [] { return firstOpening(bareSlider); }; },
             [] { return [] { return firstOpening(slider); }; }, 20});
    compare({"slider opened again", 1.2, furtherOpening(bareSlider), furtherOpening(slider), 40});
}
