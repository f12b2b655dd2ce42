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

} // namespace DialogSync
