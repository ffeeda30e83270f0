#pragma once

#include "toolkit/application/last_resort.h"

#include <QObject>
#include <QPointer>
#include <QString>
#include <QWidget>

#include <functional>
#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

namespace talvora {

/// A window of the program as an object with public fields, which are its interface. The object outlives its window:
/// the controls are made when the form is loaded and are gone when it is unloaded, the fields stay.
///
/// The base gives what every window does: Enter in a field moves on like Tab (but not in a list with the property
/// `keepsEnter`), required fields are pale yellow, a button with the property `cancel` answers Escape, the close box
/// unloads, the window is centred over its owner and never larger than its screen. Where it does not fit its screen,
/// all but its row of buttons (`layoutButtons`) scrolls.
class Form {
 public:
    Form() = default;
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;
    virtual ~Form();

    /// Creates the controls, wires the handlers and raises Form_Load. Does nothing when loaded. When Form_Load throws,
    /// the form is not loaded.
    void Load();

    /// Loads if needed and shows the window; the caller goes on.
    void Show();

    /// Loads if needed, shows the window modally, and returns when it has been hidden or unloaded and the handler that
    /// did so has run to its end. Modal windows nest. RuntimeError 400 when the window is on the screen already.
    void ShowModal();

    /// Takes the window off the screen; controls and their contents stay.
    void Hide();

    /// Raises Form_Unload, then the controls are gone. Does nothing when not loaded.
    void Unload();

    /// Waits, the window being shown without a modal wait, until it has been unloaded.
    void runUntilUnloaded();

    /// Waits until the user has closed the last of the windows that stand alone; returns at once where there is none.
    static void runUntilNoneStandsAlone();

    bool isLoaded() const { return !window_.isNull(); }

    /// The window itself, nullptr when not loaded.
    QWidget* window() const { return window_; }

    /// The forms that are loaded, in the order in which they were.
    static const std::vector<Form*>& loaded();

    /// The form of a window, nullptr for a window that is none.
    static Form* of(const QWidget* window);

    /// True for a window that is the user's own: it does not stay above the one that opened it, and it outlives all
    /// others when the user ends the program.
    virtual bool standsAlone() const { return false; }

    /// Drops every window with no unload events and ends every modal wait (see endProgram).
    static void dropAll();

    /// The same, but windows that stand alone stay.
    static void dropDependent();

    /// Destroys the default instances of all classes, fields and all, unloading nothing with events.
    static void releaseDefaults();

 protected:
    /// Makes the window with its controls.
    virtual QWidget* build() = 0;
    /// Connects the handlers by `on`. They live as long as the controls.
    virtual void wire() {}
    virtual void Form_Load() {}
    virtual void Form_Unload() {}

    /// Runs the member function `handler` at the signal. It may take fewer values than the signal carries. An error
    /// that leaves it goes to the last resort. The connection ends when the form is unloaded.
    template <class Sender, class Signal, class F, class Result, class... Values>
    void on(Sender* sender, Signal signal, Result (F::*handler)(Values...)) {
        on(sender, signal, [form = static_cast<F*>(this), handler](Values... values) { (form->*handler)(values...); });
    }

    /// The same for a function object.
    template <class Sender, class Signal, class Handler,
              std::enable_if_t<!std::is_member_function_pointer_v<Handler>, int> = 0>
    void on(Sender* sender, Signal signal, Handler handler) {
        connectGuarded(sender, signal, std::move(handler), &Handler::operator());
    }

    /// The refusal of an input: a warning (style 48), then the focus on the field at fault.
    void warn(const QString& text, QWidget* field);

    /// Whether the character ' stands in a text control (HasQuoteInText), which is then refused with the focus on
    /// `field`, wherever the character is.
    bool refusesQuotes(QWidget* field);

 private:
    struct Wait;

    template <class Sender, class Signal, class Handler, class Result, class Class, class... Values>
    void connectGuarded(Sender* sender, Signal signal, Handler handler, Result (Class::*)(Values...) const) {
        QObject::connect(sender, signal, context_,
                         [handler](Values... values) { guarded([&] { handler(values...); }); });
    }

    friend class FormEvents;

    void drop();
    void showWindow(Qt::WindowModality modality);
    void waitUntil(const std::function<bool()>& over);
    static void endProgramWaits();
    static void endWaits(const Form* form);
    static std::vector<Wait*>& waits();

    bool unloading_ = false;
    QPointer<QWidget> window_;
    QPointer<QObject> context_;  // receives every signal; its end cuts all connections at once
};

namespace detail {
void registerDefault(std::function<void()> release);

template <class Ui, class Window>
Window* surfaceOf(void (Ui::*)(Window*));
}  // namespace detail

/// A form laid out in a Designer file. `Ui` is the generated class, `F` the form's own:
///
///     class frmLogin : public DesignedForm<frmLogin, Ui::frmLogin> { … };
template <class F, class Ui>
class DesignedForm : public Form {
 public:
    /// The form's default instance, made on first use.
    static F& Default() {
        if (!default_) {
            default_ = std::make_unique<F>();
            detail::registerDefault([] { default_.reset(); });
        }
        return *default_;
    }

    /// The controls by name. Touching a control of a form that is not loaded loads it.
    class Controls {
     public:
        explicit Controls(Form* form) : form_(form) {}
        Ui* operator->() const {
            form_->Load();
            return controls_.get();
        }

     private:
        friend class DesignedForm;
        Form* form_;
        std::unique_ptr<Ui> controls_;
    };
    Controls ui{this};

 protected:
    QWidget* build() override {
        using Surface = std::remove_pointer_t<decltype(detail::surfaceOf(&Ui::setupUi))>;
        auto* surface = new Surface;
        ui.controls_ = std::make_unique<Ui>();
        ui.controls_->setupUi(surface);
        return surface;
    }

 private:
    static inline std::unique_ptr<F> default_;
};

}  // namespace talvora
