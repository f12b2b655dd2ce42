#include "ModelBinder.h"

#include "base/ViewModel.h"

#include <QAbstractButton>
#include <QAction>
#include <QColor>
#include <QLabel>
#include <QMenu>
#include <QWidget>

namespace {
QString cssColor(qint64 rgb) { return QColor::fromRgb(QRgb(rgb)).name(); }

QString styleFor(const Control& c)
{
    QString style;
    if (c.foreColor() != Colors::Default)
        style += QStringLiteral("color: %1;").arg(cssColor(c.foreColor()));
    if (c.backColor() != Colors::Default)
        style += QStringLiteral("background-color: %1;").arg(cssColor(c.backColor()));
    return style;
}
} // namespace

ModelBinder::ModelBinder(ViewModel& model, QWidget& root)
    : QObject(&root)
    , model_(model)
    , root_(root)
{
    for (Control* control : model.controls()) {
        QObject* target = nullptr;
        if (root.objectName() == control->name())
            target = &root;
        else if (auto* menu = root.findChild<QMenu*>(control->name()))
            target = menu;
        else if (auto* action = root.findChild<QAction*>(control->name()))
            target = action;
        else
            target = root.findChild<QWidget*>(control->name());
        if (target)
            bindings_.push_back({ control, target });
    }
    connect(&model, &ViewModel::changed, this, &ModelBinder::render);
    render();
}

void ModelBinder::onTriggered(const QString& name, std::function<void()> handler)
{
    QAction* action = root_.findChild<QAction*>(name);
    if (auto* menu = root_.findChild<QMenu*>(name))
        action = menu->menuAction();
    Control* control = model_.control(name);
    if (!action)
        return;
    connect(action, &QAction::triggered, this, [this, action, control, handler] {
        handler();
        if (action && control && action->isCheckable())
            action->setChecked(control->checked());
        render();
    });
}

void ModelBinder::onClicked(const QString& name, std::function<void()> handler)
{
    if (auto* button = root_.findChild<QAbstractButton*>(name))
        connect(button, &QAbstractButton::clicked, this, [this, handler] {
            handler();
            render();
        });
}

void ModelBinder::render()
{
    for (const Binding& b : bindings_)
        apply(b);
}

void ModelBinder::apply(const Binding& b)
{
    if (!b.target)
        return;
    const Control& c = *b.control;
    if (auto* action = qobject_cast<QAction*>(b.target)) {
        if (!c.caption().isEmpty())
            action->setText(c.caption());
        if (action->isCheckable())
            action->setChecked(c.checked());
        action->setEnabled(c.enabled());
        action->setVisible(c.visible());
        return;
    }
    if (auto* menu = qobject_cast<QMenu*>(b.target)) {
        menu->setTitle(c.caption());
        menu->menuAction()->setEnabled(c.enabled());
        menu->menuAction()->setVisible(c.visible());
        return;
    }
    auto* widget = qobject_cast<QWidget*>(b.target);
    if (!widget)
        return;
    if (widget == &root_) {
        widget->setWindowTitle(c.caption());
        return;
    }
    if (auto* label = qobject_cast<QLabel*>(widget))
        label->setText(c.caption());
    else if (auto* button = qobject_cast<QAbstractButton*>(widget))
        button->setText(c.caption());
    widget->setEnabled(c.enabled());
    widget->setVisible(c.visible());
    const QString style = styleFor(c);
    if (widget->property("modelStyle").toString() != style) {
        widget->setProperty("modelStyle", style);
        const QString base = widget->property("baseStyle").toString();
        widget->setStyleSheet(base + style);
    }
}
