#pragma once

#include "base/ViewModel.h"

#include <QLineEdit>
#include <QWidget>
#include <initializer_list>
#include <utility>

// What the settings dialogs share when they render their model.
namespace DialogSync {

// Puts each control's caption into its text box, leaving a box alone that already shows it (so
// the cursor does not jump while the operator types).
inline void showTexts(std::initializer_list<std::pair<QLineEdit*, const Control*>> boxes)
{
    for (const auto& [edit, control] : boxes) {
        if (edit->text() != control->caption())
            edit->setText(control->caption());
    }
}

// Gives the named child the focus, with a text box's text selected for retyping.
inline void moveFocus(QWidget& root, const QString& name)
{
    if (auto* target = root.findChild<QWidget*>(name)) {
        target->setFocus(Qt::OtherFocusReason);
        if (auto* edit = qobject_cast<QLineEdit*>(target))
            edit->selectAll();
    }
}

// A text box of a settings dialog: its control, and the controller's handler for a key pressed
// in it.
template <class Controller> struct TextBox {
    QLineEdit* edit;
    Control& control;
    void (Controller::*keyPress)(int);
};

// Wires the text boxes: what the operator types goes into the control at once, and Enter goes to
// the box's key handler, after which `render` shows the outcome.
template <class Controller, class Render>
void bindTextBoxes(QObject* owner, Controller& controller,
    std::initializer_list<TextBox<Controller>> boxes, Render render)
{
    for (const TextBox<Controller>& box : boxes) {
        Control* control = &box.control;
        QObject::connect(box.edit, &QLineEdit::textEdited, owner,
            [control](const QString& text) { control->setCaption(text); });
        const auto keyPress = box.keyPress;
        QObject::connect(
            box.edit, &QLineEdit::returnPressed, owner, [&controller, keyPress, render] {
                (controller.*keyPress)(Controller::KeyEnter);
                render();
            });
    }
}

} // namespace DialogSync
