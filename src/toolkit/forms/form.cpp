#include "toolkit/forms/form.h"

#include "toolkit/forms/form_events.h"
#include "toolkit/forms/form_setup.h"
#include "toolkit/forms/prompts.h"
#include "toolkit/forms/quotes.h"

#include <QApplication>
#include <QEventLoop>
#include <QWindow>

#include <algorithm>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

std::vector<Form*>& loadedForms() {
    static std::vector<Form*> forms;
    return forms;
}

std::vector<std::function<void()>>& defaultReleases() {
    static std::vector<std::function<void()>> releases;
    return releases;
}

Form* firstStandingAlone() {
    const auto& forms = loadedForms();
    const auto found = std::find_if(forms.begin(), forms.end(), [](const Form* form) { return form->standsAlone(); });
    return found == forms.end() ? nullptr : *found;
}

// The window that a new one belongs to: the one in use, as long as it is on the screen.
QWidget* ownerFor(const QWidget* window) {
    QWidget* owner = QApplication::activeModalWidget();
    if (!owner) {
        owner = QApplication::activeWindow();
    }
    return owner && owner != window && owner->isVisible() ? owner : nullptr;
}

}  // namespace

struct Form::Wait {
    const Form* form;
    QEventLoop loop{};
    bool programEnded = false;
};

Form::~Form() {
    drop();
}

void Form::Load() {
    if (isLoaded()) {
        return;
    }
    FormEvents::install();
    window_ = build();
    context_ = new QObject(window_);
    loadedForms().push_back(this);
    prepareControls(*window_);
    try {
        wire();
        Form_Load();
    } catch (const std::exception&) {
        drop();
        throw;
    }
}

void Form::Show() {
    Load();
    if (!window_->isVisible()) {
        showWindow(Qt::NonModal);
    }
}

void Form::ShowModal() {
    Load();
    if (window_->isVisible()) {
        throw RuntimeError(errors::AlreadyDisplayed);
    }
    showWindow(Qt::ApplicationModal);
    waitUntil([this] { return !window_ || !window_->isVisible(); });
}

void Form::Hide() {
    if (isLoaded()) {
        window_->hide();
    }
}

void Form::Unload() {
    if (!isLoaded() || unloading_) {
        return;
    }
    unloading_ = true;
    try {
        Form_Unload();
    } catch (const std::exception&) {
        unloading_ = false;
        throw;
    }
    unloading_ = false;
    drop();
}

void Form::runUntilUnloaded() {
    waitUntil([this] { return !isLoaded(); });
}

void Form::runUntilNoneStandsAlone() {
    while (Form* form = firstStandingAlone()) {
        form->runUntilUnloaded();
    }
}

const std::vector<Form*>& Form::loaded() {
    return loadedForms();
}

Form* Form::of(const QWidget* window) {
    const auto& forms = loadedForms();
    const auto found = std::find_if(forms.begin(), forms.end(), [=](Form* form) { return form->window() == window; });
    return window && found != forms.end() ? *found : nullptr;
}

void Form::dropAll() {
    endProgramWaits();
    while (!loadedForms().empty()) {
        loadedForms().back()->drop();
    }
}

void Form::dropDependent() {
    endProgramWaits();
    const std::vector<Form*> forms = loadedForms();
    for (auto form = forms.rbegin(); form != forms.rend(); ++form) {
        if (!(*form)->standsAlone()) {
            (*form)->drop();
        }
    }
}

void Form::releaseDefaults() {
    for (const auto& release : std::exchange(defaultReleases(), {})) {
        release();
    }
}

void Form::warn(const QString& text, QWidget* field) {
    MsgBox(text, vbExclamation);
    field->setFocus(Qt::OtherFocusReason);
}

bool Form::refusesQuotes(QWidget* field) {
    const bool found = HasQuoteInText(*this);
    if (found) {
        warn(u"文本框中不可输入字符［'］！"_s, field);
    }
    return found;
}

void Form::showWindow(Qt::WindowModality modality) {
    QWidget* owner = ownerFor(window_);
    window_->setWindowModality(modality);
    // Before the native window is made: a place that it gets later is taken for that of its inside, and the title bar
    // of a window as high as the screen then lies above it.
    placeWindow(*window_, owner);
    window_->winId();
    window_->windowHandle()->setTransientParent(owner && !standsAlone() ? owner->windowHandle() : nullptr);
    focusFirst(*window_);
    window_->show();
    window_->raise();
    window_->activateWindow();
}

// The controls are destroyed by the event loop, since a handler of one of them may be under way; but from here on none
// of their signals arrives.
void Form::drop() {
    QWidget* window = window_;
    if (!window) {
        return;
    }
    std::erase(loadedForms(), this);
    delete context_;
    window_.clear();
    endWaits(this);
    window->hide();
    window->deleteLater();
}

void Form::waitUntil(const std::function<bool()>& over) {
    Wait wait{this};
    waits().push_back(&wait);
    if (!over()) {
        wait.loop.exec();
    }
    std::erase(waits(), &wait);
    if (wait.programEnded) {
        throw ProgramEnded();
    }
}

void Form::endProgramWaits() {
    for (Wait* wait : waits()) {
        wait->programEnded = true;
        wait->loop.quit();
    }
}

void Form::endWaits(const Form* form) {
    for (Wait* wait : waits()) {
        if (wait->form == form) {
            wait->loop.quit();
        }
    }
}

std::vector<Form::Wait*>& Form::waits() {
    static std::vector<Wait*> instance;
    return instance;
}

void detail::registerDefault(std::function<void()> release) {
    defaultReleases().push_back(std::move(release));
}

}  // namespace talvora
