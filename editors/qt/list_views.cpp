// Combo boxes, list boxes and trees. Their entries stay in the controls and are asked for as they come on the screen,
// so that ten thousand names cost nothing to open.

#include <unordered_map>

#include <QAbstractItemModel>
#include <QComboBox>
#include <QKeyEvent>
#include <QListView>
#include <QTreeView>
#include <QWheelEvent>

#include "editors/qt/form_window.h"
#include "editors/qt/text.h"

namespace canvas::view {
namespace {

class Entries final : public QAbstractListModel {
public:
    Entries(Choice& choice, QObject* parent) : QAbstractListModel(parent), m_choice(choice) {}
    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : m_count; }
    QVariant data(const QModelIndex& index, int role) const override {
        if (role != Qt::DisplayRole || m_revision != m_choice.revision()) return {};
        return shown(m_choice.items()[static_cast<std::size_t>(index.row())]);
    }
    /// Whether the entries are others than before.
    bool follow() {
        if (m_revision == m_choice.revision()) return false;
        beginResetModel();
        m_revision = m_choice.revision();
        m_count = m_choice.ListCount();
        endResetModel();
        return true;
    }

private:
    Choice& m_choice;
    std::uint32_t m_revision = 0;
    int m_count = 0;
};

class ComboView final : public ControlView {
public:
    ComboView(FormWindow& window, Choice& control)
        : ControlView(window, control),
          choice(control),
          box(new QComboBox(&window)),
          entries(new Entries(control, box)) {
        // the other policies measure every entry
        box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        box->setMinimumContentsLength(16);
        box->setModel(entries);
        auto* list = new QListView(box);
        list->setUniformItemSizes(true);
        box->setView(list);
        QObject::connect(box, &QComboBox::activated, box, [this](int index) {
            this->window.guarded(*this, [&] {
                if (this->window.form().focus(&choice)) choice.setListIndex(index);
            });
        });
        window.watch(*box, *this);
    }
    QWidget* widget() const override { return box; }
    void follow() override {
        followCommon(*box);
        entries->follow();
        box->setCurrentIndex(choice.ListIndex());
    }

    Choice& choice;
    QComboBox* box;
    Entries* entries;
};

class ListView final : public ControlView {
public:
    ListView(FormWindow& window, Choice& control)
        : ControlView(window, control),
          choice(control),
          list(new QListView(&window)),
          entries(new Entries(control, list)) {
        list->setUniformItemSizes(true);
        list->setEditTriggers(QAbstractItemView::NoEditTriggers);
        list->setTabKeyNavigation(false);
        list->setModel(entries);
        QObject::connect(list->selectionModel(), &QItemSelectionModel::currentChanged, list,
                         [this](const QModelIndex& at) {
                             this->window.guarded(*this, [&] { choice.setListIndex(at.isValid() ? at.row() : -1); });
                         });
        QObject::connect(list, &QListView::doubleClicked, list,
                         [this] { this->window.guarded(*this, [&] { choice.DblClick(); }); });
        window.watch(*list, *this);
        window.watch(*list->viewport(), *this);
    }
    QWidget* widget() const override { return list; }
    void follow() override {
        followCommon(*list);
        entries->follow();
        const QModelIndex wanted = entries->index(choice.ListIndex());
        if (list->currentIndex() == wanted) return;
        list->setCurrentIndex(wanted);
        if (!wanted.isValid()) list->clearSelection();
    }

    Choice& choice;
    QListView* list;
    Entries* entries;
};

/// Nodes by their place in the tree's list; the model's internal number is that place.
class Nodes final : public QAbstractItemModel {
public:
    Nodes(Tree& tree, QObject* parent) : QAbstractItemModel(parent), m_tree(tree) {}

    QModelIndex at(std::size_t node) const { return createIndex(m_rows[node], 0, node); }
    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override {
        const std::vector<std::size_t>& under = children(parent);
        if (column != 0 || row < 0 || row >= static_cast<int>(under.size())) return {};
        return createIndex(row, 0, under[static_cast<std::size_t>(row)]);
    }
    QModelIndex parent(const QModelIndex& child) const override {
        const std::size_t above = child.isValid() ? m_parents[child.internalId()] : none;
        return above == none ? QModelIndex() : at(above);
    }
    int rowCount(const QModelIndex& parent = {}) const override { return static_cast<int>(children(parent).size()); }
    int columnCount(const QModelIndex& = {}) const override { return 1; }
    QVariant data(const QModelIndex& index, int role) const override {
        if (role != Qt::DisplayRole || m_revision != m_tree.revision()) return {};
        return shown(m_tree.nodes()[index.internalId()].text);
    }
    /// Whether the nodes are others than before.
    bool follow() {
        if (m_revision == m_tree.revision()) return false;
        beginResetModel();
        m_revision = m_tree.revision();
        build();
        endResetModel();
        return true;
    }

private:
    static constexpr std::size_t none = static_cast<std::size_t>(-1);

    const std::vector<std::size_t>& children(const QModelIndex& parent) const {
        return parent.isValid() ? m_children[parent.internalId()] : m_roots;
    }
    void build() {
        const std::vector<Tree::Node>& nodes = m_tree.nodes();
        std::unordered_map<std::string_view, std::size_t> places;
        m_children.assign(nodes.size(), {});
        m_roots.clear();
        m_rows.clear();
        m_parents.clear();
        for (std::size_t i = 0; i < nodes.size(); ++i) {
            const auto above = nodes[i].parent.empty() ? places.end() : places.find(nodes[i].parent);
            std::vector<std::size_t>& siblings = above == places.end() ? m_roots : m_children[above->second];
            m_parents.push_back(above == places.end() ? none : above->second);
            m_rows.push_back(static_cast<int>(siblings.size()));
            siblings.push_back(i);
            places.emplace(nodes[i].key, i);
        }
    }

    Tree& m_tree;
    std::uint32_t m_revision = 0;
    std::vector<std::vector<std::size_t>> m_children;
    std::vector<std::size_t> m_roots, m_parents;
    std::vector<int> m_rows;
};

class TreeView final : public ControlView {
public:
    TreeView(FormWindow& window, Tree& control)
        : ControlView(window, control), tree(control), view(new QTreeView(&window)), nodes(new Nodes(control, view)) {
        view->setUniformRowHeights(true);
        view->setHeaderHidden(true);
        view->setEditTriggers(QAbstractItemView::NoEditTriggers);
        view->setTabKeyNavigation(false);
        view->setModel(nodes);
        QObject::connect(view->selectionModel(), &QItemSelectionModel::currentChanged, view,
                         [this](const QModelIndex& at) {
                             m_told = true;
                             click(at);
                         });
        // a click on the node that is current already is a click too
        QObject::connect(view, &QTreeView::pressed, view, [this](const QModelIndex& at) {
            if (!std::exchange(m_told, false)) click(at);
        });
        window.watch(*view, *this);
        window.watch(*view->viewport(), *this);
    }
    QWidget* widget() const override { return view; }
    bool key(QKeyEvent&) override {
        m_told = false;
        return false;
    }
    bool mouse(QMouseEvent&) override {
        m_told = false;
        return false;
    }
    void follow() override {
        followCommon(*view);
        const bool others = nodes->follow();
        const std::vector<Tree::Node>& all = tree.nodes();
        for (std::size_t i = 0; i < all.size(); ++i) {
            if (others && all[i].expanded) view->expand(nodes->at(i));
            if (!tree.selected().empty() && all[i].key == tree.selected()) view->setCurrentIndex(nodes->at(i));
        }
    }

    Tree& tree;
    QTreeView* view;
    Nodes* nodes;

private:
    void click(const QModelIndex& at) {
        if (!at.isValid()) return;
        window.guarded(*this, [&] { tree.NodeClick(std::string(tree.nodes().at(at.internalId()).key)); });
    }

    bool m_told = false;
};

}  // namespace

std::unique_ptr<ControlView> makeChoiceView(FormWindow& window, Choice& control) {
    if (control.row().kind == ControlKind::combo) return std::make_unique<ComboView>(window, control);
    return std::make_unique<ListView>(window, control);
}

std::unique_ptr<ControlView> makeTreeView(FormWindow& window, Tree& control) {
    return std::make_unique<TreeView>(window, control);
}

}  // namespace canvas::view
