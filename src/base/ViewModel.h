#pragma once

#include <QObject>
#include <QString>
#include <vector>

class ViewModel;

// Colours are kept as 0xRRGGBB; -1 means the control's default colour.
namespace Colors {
constexpr qint64 Default = -1;
constexpr qint64 Red = 0xFF0000;
constexpr qint64 Green = 0x00FF00;
constexpr qint64 Yellow = 0xFFFF00;
constexpr qint64 Grey = 0x808080;
// The instrument software's own constants are blue-green-red; this turns one into 0xRRGGBB.
constexpr qint64 fromBgr(quint32 bgr)
{
    return ((bgr & 0xFF) << 16) | (bgr & 0xFF00) | ((bgr >> 16) & 0xFF);
}
} // namespace Colors

// The state of one control of a window: what the view shows of it. Every setter that changes
// something tells the owning model, which coalesces the changes into one `changed` signal.
//
// A caption that never changes belongs to the window's form. The model holds a control's caption
// only when it is given one here or sets one later; until then the view keeps the form's.
class Control {
public:
    // Held on purpose with no widget of its name on the window.
    struct NoWidget { };

    Control(ViewModel* owner, QString name);
    Control(ViewModel* owner, QString name, QString caption);
    Control(ViewModel* owner, QString name, NoWidget);
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    const QString& name() const { return name_; }
    const QString& caption() const { return caption_; }
    bool hasCaption() const { return hasCaption_; }
    bool hasWidget() const { return hasWidget_; }
    bool checked() const { return checked_; }
    bool enabled() const { return enabled_; }
    bool visible() const { return visible_; }
    qint64 foreColor() const { return foreColor_; }
    qint64 backColor() const { return backColor_; }

    void setCaption(const QString& caption);
    void setChecked(bool checked);
    void setEnabled(bool enabled);
    void setVisible(bool visible);
    void setForeColor(qint64 rgb);
    void setBackColor(qint64 rgb);

private:
    friend class ViewModel;
    ViewModel* owner_;
    bool listed_ = false;
    QString name_;
    QString caption_;
    bool hasCaption_ = false;
    bool hasWidget_ = true;
    bool checked_ = false;
    bool enabled_ = true;
    bool visible_ = true;
    qint64 foreColor_ = Colors::Default;
    qint64 backColor_ = Colors::Default;
};

// A window's plain state. The view renders it on `changed`, which fires at most once per pass
// of the event loop however many controls changed.
class ViewModel : public QObject {
    Q_OBJECT
public:
    explicit ViewModel(QObject* parent = nullptr);

    const std::vector<Control*>& controls() const { return controls_; }
    Control* control(const QString& name) const;
    // Asks for a `changed` signal; a control passed in is listed among the changed ones, none
    // means anything may have changed (a model's own state outside its controls, say).
    void markDirty(Control* control = nullptr);
    // While `changed` runs: the controls changed since the last signal, in order of change, and
    // whether something beyond them changed as well. Outside the signal: empty and false.
    const std::vector<Control*>& changedControls() const
    {
        return changedControls_ ? *changedControls_ : noControls_;
    }
    bool everythingChanged() const { return everythingChanged_; }

    // Holds the changes made while it lives and signals them when the outermost hold ends,
    // straight away instead of at the next pass of the event loop. For work that changes the
    // model many times a second, such as readings streaming in: no extra pass each time.
    class Hold {
    public:
        explicit Hold(ViewModel& model)
            : model_(model)
        {
            ++model_.holds_;
        }
        ~Hold() { model_.endHold(); }
        Hold(const Hold&) = delete;
        Hold& operator=(const Hold&) = delete;

    private:
        ViewModel& model_;
    };

signals:
    void changed();

protected:
    friend class Control;
    void registerControl(Control* control) { controls_.push_back(control); }

private:
    void flush();
    void endHold();
    int holds_ = 0;
    bool heldChanges_ = false;
    std::vector<Control*> controls_;
    std::vector<Control*> dirty_;
    const std::vector<Control*>* changedControls_ = nullptr;
    const std::vector<Control*> noControls_;
    bool pending_ = false;
    bool allChanged_ = false;
    bool everythingChanged_ = false;
};

// A dialog's model that moves the focus: the control that should have it, by name. Each request
// counts, so asking again for the same box puts the focus back there.
class FocusingModel : public ViewModel {
public:
    using ViewModel::ViewModel;
    const QString& focus() const { return focus_; }
    int focusRequests() const { return focusRequests_; }
    void setFocus(const QString& name)
    {
        focus_ = name;
        ++focusRequests_;
        markDirty();
    }

private:
    QString focus_;
    int focusRequests_ = 0;
};
