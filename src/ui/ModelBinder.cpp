#include "ModelBinder.h"

#include "base/ViewModel.h"

#include <QAbstractButton>
#include <QAction>
#include <QColor>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QWidget>
#include <algorithm>
#include <stdexcept>

namespace {
#ifdef NDEBUG
bool strictBinding = false;
#else
bool strictBinding = true;
#endif

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

// The caption the form gave a widget, as far as the binder would show one.
QString formCaption(QObject* target, const QWidget& root)
{
    if (auto* action = qobject_cast<QAction*>(target))
        return action->text();
    if (auto* menu = qobject_cast<QMenu*>(target))
        return menu->title();
    if (target == &root)
        return root.windowTitle();
    if (auto* label = qobject_cast<QLabel*>(target))
        return label->text();
    if (auto* button = qobject_cast<QAbstractButton*>(target))
        return button->text();
    return {};
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
        if (!target != !control->hasWidget())
            problems_ << control->name()
                    + (target ? QStringLiteral(": declared without a widget, yet the form has one")
                              : QStringLiteral(": no widget of this name"));
        if (target && control->hasCaption() && !formCaption(target, root).isEmpty())
            problems_ << control->name() + QStringLiteral(": a caption in both model and form");
        if (target) {
            index_.emplace(control, bindings_.size());
            Binding binding;
            binding.control = control;
            binding.target = target;
            if (auto* label = qobject_cast<QLabel*>(target)) {
                binding.basePalette = label->palette();
                binding.baseAutoFill = label->autoFillBackground();
            }
            bindings_.push_back(binding);
        }
    }
    connect(&model, &ViewModel::changed, this, &ModelBinder::renderChanged);
    render();
}

void ModelBinder::onTriggered(const QString& name, std::function<void()> handler)
{
    handled_.insert(name);
    QAction* action = root_.findChild<QAction*>(name);
    if (auto* menu = root_.findChild<QMenu*>(name))
        action = menu->menuAction();
    Control* control = model_.control(name);
    if (!action) {
        problems_ << name + QStringLiteral(": a handler with no action of this name");
        return;
    }
    connect(action, &QAction::triggered, this, [this, action, control, handler] {
        handler();
        if (action && control && action->isCheckable())
            action->setChecked(control->checked());
        render();
    });
}

void ModelBinder::onClicked(const QString& name, std::function<void()> handler)
{
    handled_.insert(name);
    auto* button = root_.findChild<QAbstractButton*>(name);
    if (!button) {
        problems_ << name + QStringLiteral(": a handler with no button of this name");
        return;
    }
    connect(button, &QAbstractButton::clicked, this, [this, handler] {
        handler();
        render();
    });
}

QStringList ModelBinder::problems() const
{
    QStringList all = problems_;
    for (const Binding& b : bindings_) {
        const bool command
            = qobject_cast<QAction*>(b.target) || qobject_cast<QPushButton*>(b.target);
        if (command && !handled_.contains(b.control->name()))
            all << b.control->name() + QStringLiteral(": a command with no handler");
    }
    return all;
}

void ModelBinder::check() const
{
    const QStringList found = problems();
    if (found.isEmpty())
        return;
    const QString text = QStringLiteral("%1 binds by name wrongly: %2")
                             .arg(root_.objectName(), found.join(QStringLiteral("; ")));
    if (strictBinding)
        throw std::logic_error(text.toStdString());
    qWarning("%s", qPrintable(text));
}

void ModelBinder::setStrict(bool strict) { strictBinding = strict; }

void ModelBinder::render()
{
    for (Binding& b : bindings_)
        apply(b);
}

// Readings change a label or two many times a second: only what changed is shown again.
void ModelBinder::renderChanged()
{
    if (model_.everythingChanged()) {
        render();
        return;
    }
    for (const Control* c : model_.changedControls()) {
        const auto found = index_.find(c);
        if (found == index_.end())
            continue;
        Binding& b = bindings_[found->second];
        if (!b.throttled) {
            apply(b);
            continue;
        }
        if (std::find(held_.begin(), held_.end(), found->second) == held_.end())
            held_.push_back(found->second);
    }
    if (held_.empty() || throttleGate_.isActive())
        return;
    const qint64 wait
        = sinceThrottled_.isValid() ? throttleMs_ - sinceThrottled_.elapsed() : qint64(0);
    if (wait > 0)
        throttleGate_.start(int(wait));
    else
        showHeld();
}

void ModelBinder::throttle(const QStringList& names, int ms)
{
    for (Binding& b : bindings_)
        if (names.contains(b.control->name()))
            b.throttled = true;
    throttleMs_ = ms;
    throttleGate_.setSingleShot(true);
    connect(&throttleGate_, &QTimer::timeout, this, &ModelBinder::showHeld, Qt::UniqueConnection);
}

void ModelBinder::showHeld()
{
    for (std::size_t i : held_)
        apply(bindings_[i]);
    held_.clear();
    sinceThrottled_.start();
}

void ModelBinder::apply(Binding& b)
{
    if (!b.target)
        return;
    const Control& c = *b.control;
    if (auto* action = qobject_cast<QAction*>(b.target)) {
        if (c.hasCaption())
            action->setText(c.caption());
        if (action->isCheckable())
            action->setChecked(c.checked());
        action->setEnabled(c.enabled());
        action->setVisible(c.visible());
        return;
    }
    if (auto* menu = qobject_cast<QMenu*>(b.target)) {
        if (c.hasCaption())
            menu->setTitle(c.caption());
        menu->menuAction()->setEnabled(c.enabled());
        menu->menuAction()->setVisible(c.visible());
        return;
    }
    auto* widget = qobject_cast<QWidget*>(b.target);
    if (!widget)
        return;
    if (widget == &root_) {
        if (c.hasCaption())
            widget->setWindowTitle(c.caption());
        return;
    }
    widget->setEnabled(c.enabled());
    widget->setVisible(c.visible());
    if (auto* label = qobject_cast<QLabel*>(widget)) {
        if (c.hasCaption())
            label->setText(c.caption());
        applyLabelColors(b, *label);
        return;
    }
    if (auto* button = qobject_cast<QAbstractButton*>(widget); button && c.hasCaption())
        button->setText(c.caption());
    const QString style = styleFor(c);
    if (widget->property("modelStyle").toString() != style) {
        widget->setProperty("modelStyle", style);
        const QString base = widget->property("baseStyle").toString();
        widget->setStyleSheet(base + style);
    }
}

void ModelBinder::applyLabelColors(Binding& b, QLabel& label)
{
    const qint64 fore = b.control->foreColor();
    const qint64 back = b.control->backColor();
    if (fore == b.shownFore && back == b.shownBack)
        return;
    b.shownFore = fore;
    b.shownBack = back;
    QPalette palette = b.basePalette;
    if (fore != Colors::Default)
        palette.setColor(QPalette::WindowText, QColor::fromRgb(QRgb(fore)));
    if (back != Colors::Default)
        palette.setColor(QPalette::Window, QColor::fromRgb(QRgb(back)));
    label.setAutoFillBackground(back != Colors::Default || b.baseAutoFill);
    label.setPalette(palette);
}
