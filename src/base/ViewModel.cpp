#include "ViewModel.h"

#include <QMetaObject>

Control::Control(ViewModel* owner, QString name, QString caption)
    : owner_(owner)
    , name_(std::move(name))
    , caption_(std::move(caption))
{
    owner_->registerControl(this);
}

void Control::setCaption(const QString& caption)
{
    if (caption_ == caption)
        return;
    caption_ = caption;
    owner_->markDirty();
}

void Control::setChecked(bool checked)
{
    if (checked_ == checked)
        return;
    checked_ = checked;
    owner_->markDirty();
}

void Control::setEnabled(bool enabled)
{
    if (enabled_ == enabled)
        return;
    enabled_ = enabled;
    owner_->markDirty();
}

void Control::setVisible(bool visible)
{
    if (visible_ == visible)
        return;
    visible_ = visible;
    owner_->markDirty();
}

void Control::setForeColor(qint64 rgb)
{
    if (foreColor_ == rgb)
        return;
    foreColor_ = rgb;
    owner_->markDirty();
}

void Control::setBackColor(qint64 rgb)
{
    if (backColor_ == rgb)
        return;
    backColor_ = rgb;
    owner_->markDirty();
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

void ViewModel::markDirty()
{
    if (pending_)
        return;
    pending_ = true;
    QMetaObject::invokeMethod(this, &ViewModel::flush, Qt::QueuedConnection);
}

void ViewModel::flush()
{
    pending_ = false;
    emit changed();
}
