#include "ViewModel.h"

#include <QMetaObject>
#include <utility>

Control::Control(ViewModel* owner, QString name)
    : owner_(owner)
    , name_(std::move(name))
{
    owner_->registerControl(this);
}

Control::Control(ViewModel* owner, QString name, QString caption)
    : Control(owner, std::move(name))
{
    caption_ = std::move(caption);
    hasCaption_ = true;
}

Control::Control(ViewModel* owner, QString name, NoWidget)
    : Control(owner, std::move(name))
{
    hasWidget_ = false;
}

void Control::setCaption(const QString& caption)
{
    if (hasCaption_ && caption_ == caption)
        return;
    caption_ = caption;
    hasCaption_ = true;
    owner_->markDirty(this);
}

void Control::setChecked(bool checked)
{
    if (checked_ == checked)
        return;
    checked_ = checked;
    owner_->markDirty(this);
}

void Control::setEnabled(bool enabled)
{
    if (enabled_ == enabled)
        return;
    enabled_ = enabled;
    owner_->markDirty(this);
}

void Control::setVisible(bool visible)
{
    if (visible_ == visible)
        return;
    visible_ = visible;
    owner_->markDirty(this);
}

void Control::setForeColor(qint64 rgb)
{
    if (foreColor_ == rgb)
        return;
    foreColor_ = rgb;
    owner_->markDirty(this);
}

void Control::setBackColor(qint64 rgb)
{
    if (backColor_ == rgb)
        return;
    backColor_ = rgb;
    owner_->markDirty(this);
}

ViewModel::ViewModel(QObject* parent)
    : QObject(parent)
{
}

Control* ViewModel::control(const QString& name) const
{
    for (Control* c : controls_) {
        if (c->name() == name)
            return c;
    }
    return nullptr;
}

void ViewModel::markDirty(Control* control)
{
    if (control == nullptr)
        allChanged_ = true;
    else if (!control->listed_) {
        control->listed_ = true;
        dirty_.push_back(control);
    }
    if (holds_ > 0) {
        heldChanges_ = true;
        return;
    }
    if (pending_)
        return;
    pending_ = true;
    QMetaObject::invokeMethod(this, &ViewModel::flush, Qt::QueuedConnection);
}

void ViewModel::endHold()
{
    if (--holds_ > 0 || !std::exchange(heldChanges_, false))
        return;
    flush();
}

void ViewModel::flush()
{
    pending_ = false;
    // Listeners read the list while `changed` runs; a change they make goes to the next pass.
    std::vector<Control*> changedNow;
    changedNow.swap(dirty_);
    for (Control* c : changedNow)
        c->listed_ = false;
    const bool allNow = std::exchange(allChanged_, false);
    changedControls_ = &changedNow;
    everythingChanged_ = allNow;
    emit changed();
    changedControls_ = nullptr;
    everythingChanged_ = false;
}
