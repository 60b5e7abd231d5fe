#include "platform/qt/file_list_access.h"

#include <QAbstractItemView>
#include <QAccessibleWidget>
#include <QFileDialog>
#include <QHeaderView>
#include <QPointer>
#include <QTreeView>
#include <map>

namespace korvinel::platform {
namespace {

/// The list's cells, numbered as the view does when it reports the focus: row by row; a tree's first row is its header,
/// a list has only the first column.
struct CellOrder {
  explicit CellOrder(const QAbstractItemView& view) : header(qobject_cast<const QTreeView*>(&view) != nullptr ? 1 : 0) {
    const QAbstractItemModel* model = view.model();
    if (model == nullptr) return;  // the dialog is being closed
    columns = header == 0 ? 1 : model->columnCount();
    rows = model->rowCount(view.rootIndex());
  }

  [[nodiscard]] int count() const { return (header + rows) * columns; }
  [[nodiscard]] int row(int number) const { return number / columns - header; }  ///< -1: the header
  [[nodiscard]] int column(int number) const { return number % columns; }
  [[nodiscard]] int number(const QModelIndex& index) const {
    return index.isValid() && index.column() < columns ? (index.row() + header) * columns + index.column() : -1;
  }

  int header, columns = 0, rows = 0;
};

Qt::SortOrder otherOrder(const QHeaderView& header, int column) {
  const bool ascending = header.sortIndicatorSection() == column && header.sortIndicatorOrder() == Qt::AscendingOrder;
  return ascending ? Qt::DescendingOrder : Qt::AscendingOrder;
}

class FileCell : public QAccessibleInterface, public QAccessibleActionInterface {
 public:
  FileCell(QAbstractItemView& view, int number) : view_(&view), number_(number) {}

  [[nodiscard]] int number() const { return number_; }
  [[nodiscard]] bool isValid() const override { return view_ && number_ < CellOrder(*view_).count(); }
  [[nodiscard]] QObject* object() const override { return nullptr; }
  [[nodiscard]] QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(view_); }
  [[nodiscard]] QAccessibleInterface* child(int) const override { return nullptr; }
  [[nodiscard]] QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  [[nodiscard]] int childCount() const override { return 0; }
  [[nodiscard]] int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  void setText(QAccessible::Text, const QString&) override {}

  [[nodiscard]] QString text(QAccessible::Text what) const override {
    if (!isValid() || what != QAccessible::Name) return {};
    if (const QHeaderView* header = headerView())
      return view_->model()->headerData(column(), header->orientation()).toString();
    return index().data().toString();
  }

  [[nodiscard]] QRect rect() const override {
    if (!isValid()) return {};
    if (const QHeaderView* header = headerView()) {
      const QPoint corner(header->sectionViewportPosition(column()), 0);
      return {header->viewport()->mapToGlobal(corner), QSize(header->sectionSize(column()), header->height())};
    }
    const QRect place = view_->visualRect(index());
    return {view_->viewport()->mapToGlobal(place.topLeft()), place.size()};
  }

  [[nodiscard]] QAccessible::Role role() const override {
    if (isValid() && headerView() != nullptr) return QAccessible::ColumnHeader;
    return QAccessible::ListItem;
  }

  [[nodiscard]] QAccessible::State state() const override {
    QAccessible::State state;
    state.invalid = !isValid();
    if (state.invalid || headerView() != nullptr) return state;
    const QRect shown(view_->viewport()->mapToGlobal(QPoint(0, 0)), view_->viewport()->size());
    state.invisible = !view_->isVisible();
    state.offscreen = !shown.intersects(rect());
    state.focusable = state.selectable = true;
    state.selected = view_->selectionModel()->isSelected(index());
    state.focused = view_->hasFocus() && view_->currentIndex() == index();
    return state;
  }

  void* interface_cast(QAccessible::InterfaceType type) override {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
  }

  [[nodiscard]] QStringList actionNames() const override { return {pressAction()}; }
  [[nodiscard]] QStringList keyBindingsForAction(const QString&) const override { return {}; }
  /// Like a click on it: selects the file, or sorts the list.
  void doAction(const QString& name) override {
    if (name != pressAction() || !isValid()) return;
    if (QHeaderView* header = headerView())
      header->setSortIndicator(column(), otherOrder(*header, column()));
    else
      view_->setCurrentIndex(index());
  }

 private:
  [[nodiscard]] int column() const { return CellOrder(*view_).column(number_); }
  [[nodiscard]] QHeaderView* headerView() const {
    auto* tree = qobject_cast<QTreeView*>(view_);
    return tree != nullptr && CellOrder(*view_).row(number_) < 0 ? tree->header() : nullptr;
  }
  [[nodiscard]] QModelIndex index() const {
    return view_->model()->index(CellOrder(*view_).row(number_), column(), view_->rootIndex());
  }

  QPointer<QAbstractItemView> view_;
  int number_;
};

class FileList : public QAccessibleWidget {
 public:
  explicit FileList(QAbstractItemView& view) : QAccessibleWidget(&view, QAccessible::List) {}
  FileList(const FileList&) = delete;
  FileList& operator=(const FileList&) = delete;
  ~FileList() override {
    for (const auto& [number, id] : cells_) QAccessible::deleteAccessibleInterface(id);
  }

  [[nodiscard]] int childCount() const override { return CellOrder(view()).count(); }

  [[nodiscard]] QAccessibleInterface* child(int number) const override {
    if (number < 0 || number >= childCount()) return nullptr;
    const auto found = cells_.find(number);
    if (found != cells_.end()) return QAccessible::accessibleInterface(found->second);
    auto* cell = new FileCell(view(), number);
    cells_[number] = QAccessible::registerAccessibleInterface(cell);
    return cell;
  }

  [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override {
    const auto* cell = dynamic_cast<const FileCell*>(child);
    return cell != nullptr && cell->isValid() ? cell->number() : -1;
  }

  [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override {
    return child(CellOrder(view()).number(view().indexAt(view().viewport()->mapFromGlobal(QPoint(x, y)))));
  }

  [[nodiscard]] QAccessibleInterface* focusChild() const override {
    return child(CellOrder(view()).number(view().currentIndex()));
  }

 private:
  [[nodiscard]] QAbstractItemView& view() const { return *qobject_cast<QAbstractItemView*>(widget()); }

  mutable std::map<int, QAccessible::Id> cells_;  // by number; the toolkit owns objects whose id it has
};

}  // namespace

QAccessibleInterface* fileListAccess(const QString& className, QObject* object) {
  const bool isList = className == "QTreeView" || className == "QListView";
  if (!isList || className != object->metaObject()->className()) return nullptr;  // the list of places is a subclass
  auto* view = qobject_cast<QAbstractItemView*>(object);
  return qobject_cast<QFileDialog*>(view->window()) != nullptr ? new FileList(*view) : nullptr;
}

}  // namespace korvinel::platform
