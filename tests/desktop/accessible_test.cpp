// SPDX-License-Identifier: MIT
// What assistive programs find in a control.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QScrollBar>

#include "desktop/ControlWidget.hpp"
#include "desktop/SampleControl.hpp"

namespace mobrel {
namespace {

class Accessible : public testing::Test {
 protected:
    QAccessibleInterface& interface() { return *QAccessible::queryAccessibleInterface(&m_widget); }

    test::SampleControl m_control;
    ControlWidget m_widget{m_control};
};

TEST_F(Accessible, RolesNamesAndValues) {
    const std::pair<AccessibleRole, QAccessible::Role> roles[] = {
        {AccessibleRole::Graphic, QAccessible::Graphic},
        {AccessibleRole::List, QAccessible::List},
        {AccessibleRole::ProgressBar, QAccessible::ProgressBar},
        {AccessibleRole::Slider, QAccessible::Slider},
        {AccessibleRole::StatusBar, QAccessible::StatusBar},
    };
    for (const auto& [role, expected] : roles) {
        test::SampleControl control;
        control.role = role;
        ControlWidget widget(control);
        widget.setAccessibleName("Tools");
        auto* const found = QAccessible::queryAccessibleInterface(&widget);
        EXPECT_EQ(found->role(), expected);
        EXPECT_EQ(found->text(QAccessible::Name), "Tools");
        EXPECT_EQ(found->text(QAccessible::Value), "a value");
        EXPECT_EQ(found->state().focusable, widget.focusPolicy() != Qt::NoFocus);
    }
}

TEST_F(Accessible, ValueCanBeSetInsideItsRange) {
    EXPECT_EQ(interface().valueInterface(), nullptr);
    m_control.range = AccessibleRange{-5, 20, 2, 7};
    auto* const value = interface().valueInterface();
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->minimumValue().toInt(), -5);
    EXPECT_EQ(value->maximumValue().toInt(), 20);
    EXPECT_EQ(value->minimumStepSize().toInt(), 2);
    for (const auto& [set, expected] : {std::pair(12, 12), std::pair(99, 20), std::pair(-99, -5)}) {
        value->setCurrentValue(set);
        EXPECT_EQ(m_control.range->value, expected);
        EXPECT_EQ(value->currentValue().toInt(), expected);
    }
}

TEST_F(Accessible, RowsOfAList) {
    m_control.items = {"one", "two", "three"};
    m_control.host()->verticalScrollBar().setVisible(true);
    ASSERT_EQ(interface().childCount(), 4);
    QAccessibleInterface* const second = interface().child(1);
    EXPECT_EQ(second->role(), QAccessible::ListItem);
    EXPECT_EQ(second->text(QAccessible::Name), "two");
    EXPECT_EQ(second->parent(), &interface());
    EXPECT_EQ(interface().indexOfChild(second), 1);
    EXPECT_EQ(interface().child(3)->role(), QAccessible::ScrollBar);
    EXPECT_EQ(interface().indexOfChild(interface().child(3)), 3);
    EXPECT_EQ(interface().child(4), nullptr);
    EXPECT_EQ(interface().child(-1), nullptr);

    const QPoint corner = m_widget.mapToGlobal(QPoint(0, qRound(10 / m_widget.devicePixelRatioF())));
    EXPECT_EQ(second->rect().topLeft(), corner);
    EXPECT_EQ(interface().childAt(second->rect().center().x(), second->rect().center().y()), second);

    EXPECT_FALSE(second->state().selected);
    second->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(m_control.selected, 1);
    EXPECT_TRUE(second->state().selected);
    EXPECT_FALSE(interface().child(0)->state().selected);

    m_control.items.resize(1);  // a row that was held on to is gone
    EXPECT_FALSE(second->isValid());
    EXPECT_EQ(second->text(QAccessible::Name), "");
    EXPECT_TRUE(second->rect().isEmpty());
}

}  // namespace
}  // namespace mobrel
