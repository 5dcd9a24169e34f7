// SPDX-License-Identifier: MIT
#include "desktop/ControlAccessible.hpp"

#include <QAccessible>
#include <QAccessibleWidget>
#include <algorithm>
#include <utility>
#include <vector>

#include "desktop/Boundary.hpp"
#include "desktop/ControlWidget.hpp"
#include "desktop/QtValues.hpp"
#include "platform/base/Lookup.hpp"

namespace mobrel {

namespace {

constexpr std::pair<AccessibleRole, QAccessible::Role> kRoles[] = {
    {AccessibleRole::Graphic, QAccessible::Graphic},         {AccessibleRole::List, QAccessible::List},
    {AccessibleRole::ProgressBar, QAccessible::ProgressBar}, {AccessibleRole::Slider, QAccessible::Slider},
    {AccessibleRole::StatusBar, QAccessible::StatusBar},
};

/// One row of a list.
class ItemAccessible final : public QAccessibleInterface, public QAccessibleActionInterface {
 public:
    ItemAccessible(ControlWidget& list, int item) : m_list(list), m_item(item) {}

    bool isValid() const override { return m_item < control().accessibleItemCount(); }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(&m_list); }
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
    QAccessible::Role role() const override { return QAccessible::ListItem; }

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name && isValid() ? qtText(control().accessibleItemText(m_item)) : "";
    }
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}

    /// Empty for a row that is scrolled away.
    QRect rect() const override {
        if (!isValid()) return {};
        const QRect place = nearestRect(control().accessibleItemRect(m_item), m_list.devicePixelRatioF());
        return place.isEmpty() ? QRect() : QRect(m_list.mapToGlobal(place.topLeft()), place.size());
    }

    QAccessible::State state() const override {
        QAccessible::State state;
        if (!isValid()) {
            state.invalid = true;
            return state;
        }
        state.selectable = true;
        state.selected = control().isAccessibleItemSelected(m_item);
        state.offscreen = rect().isEmpty();
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }
    QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString& name) override {
        if (name != pressAction() || !isValid()) return;
        enterCore([this] { control().selectAccessibleItem(m_item); });
    }
    QStringList keyBindingsForAction(const QString& /*name*/) const override { return {}; }

 private:
    Control& control() const { return m_list.control(); }

    ControlWidget& m_list;
    int m_item;
};

class ControlAccessible final : public QAccessibleWidget, public QAccessibleValueInterface {
 public:
    explicit ControlAccessible(ControlWidget& widget)
        : QAccessibleWidget(&widget, valueIn(kRoles, widget.control().accessibleRole(), QAccessible::Client)),
          m_widget(widget) {}
    ~ControlAccessible() override {
        for (QAccessibleInterface* const item : m_items) {
            if (item != nullptr) QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(item));
        }
    }

    QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Value) return qtText(control().accessibleValue());
        return QAccessibleWidget::text(kind);
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.readOnly = role() == QAccessible::ProgressBar || role() == QAccessible::StatusBar;
        return state;
    }

    // The rows of a list come first; what stands in the widget follows.
    int childCount() const override { return itemCount() + QAccessibleWidget::childCount(); }
    QAccessibleInterface* child(int index) const override {
        if (index < 0) return nullptr;
        return index < itemCount() ? item(index) : QAccessibleWidget::child(index - itemCount());
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        const auto found = std::ranges::find(m_items, child);
        if (child != nullptr && found != m_items.end()) return static_cast<int>(found - m_items.begin());
        const int index = QAccessibleWidget::indexOfChild(child);
        return index < 0 ? index : index + itemCount();
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        for (int i = 0; i < itemCount(); ++i) {
            if (item(i)->rect().contains(x, y)) return item(i);
        }
        return QAccessibleWidget::childAt(x, y);
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::ValueInterface && control().accessibleRange()) {
            return static_cast<QAccessibleValueInterface*>(this);
        }
        return QAccessibleWidget::interface_cast(type);
    }
    QVariant currentValue() const override { return range().value; }
    void setCurrentValue(const QVariant& value) override {
        const int inside = qBound(range().least, value.toInt(), range().greatest);
        enterCore([&] { control().setAccessibleValue(inside); });
    }
    QVariant minimumValue() const override { return range().least; }
    QVariant maximumValue() const override { return range().greatest; }
    QVariant minimumStepSize() const override { return range().step; }

 private:
    Control& control() const { return m_widget.control(); }
    AccessibleRange range() const { return control().accessibleRange().value_or(AccessibleRange{}); }
    int itemCount() const { return control().accessibleItemCount(); }

    /// Made when it is first asked for, and kept.
    QAccessibleInterface* item(int index) const {
        const auto place = static_cast<std::size_t>(index);
        if (place >= m_items.size()) m_items.resize(place + 1);
        if (m_items[place] == nullptr) {
            m_items[place] = new ItemAccessible(m_widget, index);
            QAccessible::registerAccessibleInterface(m_items[place]);
        }
        return m_items[place];
    }

    ControlWidget& m_widget;
    mutable std::vector<QAccessibleInterface*> m_items;  // owned by Qt's register of interfaces
};

QAccessibleInterface* makeInterface(const QString& /*className*/, QObject* object) {
    auto* const widget = dynamic_cast<ControlWidget*>(object);
    return widget != nullptr ? new ControlAccessible(*widget) : nullptr;
}

}  // namespace

void installControlAccessibility() {
    QAccessible::installFactory(makeInterface);
}

void tellAccessibleChange(QWidget& widget, const Control& control) {
    if (!QAccessible::isActive()) return;
    if (control.accessibleRole() == AccessibleRole::List) {
        QAccessibleEvent event(&widget, QAccessible::SelectionWithin);
        QAccessible::updateAccessibility(&event);
        return;
    }
    const auto range = control.accessibleRange();
    QAccessibleValueChangeEvent event(
        &widget, range ? QVariant(range->value) : QVariant(qtText(control.accessibleValue())));
    QAccessible::updateAccessibility(&event);
}

}  // namespace mobrel
