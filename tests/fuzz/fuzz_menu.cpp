#include "QZelCommonControl/SubscribeMenuModel.h"
#include "SubscribeMenu.h"

#include <algorithm>
#include <cstdlib>

using namespace ZelCore;

namespace {

/// Takes a tree out of the bytes: of each node the number of children, then the texts, which need not end.
class TreeReader
{
public:
    TreeReader(const std::uint8_t* data, std::size_t size)
        : m_at(data)
        , m_end(data + size)
    {}

    void read(SUBSCRIBE_NODE__& node)
    {
        node.ModuleID = byte();
        text(node.NodeName);
        text(node.SubscribeName);
        if (const UInt children = byte() % 8; children > 0 && m_at < m_end) {
            node.CreateList(children);
            for (UInt i = 0; i < children; ++i) {
                read(node.Items()[i]);
            }
        }
    }

private:
    unsigned int byte() { return m_at < m_end ? *m_at++ : 0; }

    template <std::size_t N>
    void text(char (&field)[N])
    {
        const auto length = std::min<std::ptrdiff_t>(std::ptrdiff_t{2} * byte(), m_end - m_at);
        std::fill_n(field, N, '\0');
        std::copy_n(m_at, std::min<std::ptrdiff_t>(length, N), field);
        m_at += length;
    }

    const std::uint8_t* m_at;
    const std::uint8_t* m_end;
};

int leaves(const SubscribeMenuModel& model, const QModelIndex& parent = {})
{
    int count = 0;
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        if (model.parent(index) != parent) {
            std::abort();
        }
        index.data(Qt::ToolTipRole);
        count += (index.flags() & Qt::ItemIsSelectable) ? 1 : leaves(model, index);
    }
    return count;
}

} // namespace

// The menu of any tree can be made, shown and filtered.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    SUBSCRIBE_NODE__ tree;
    TreeReader(data, size).read(tree);
    QJsonObject module;
    SubscribeMenu::ParseTreeNode(tree, module, 1);
    SubscribeMenuModel model;
    model.setMenu({module});
    const int all = leaves(model);
    model.setFilter(QString::fromUtf8(tree.SubscribeName, 4));
    if (leaves(model) > all) {
        std::abort();
    }
    return 0;
}
