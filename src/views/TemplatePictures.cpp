#include "views/TemplatePictures.h"

#include <algorithm>
#include <utility>

#include "data/PreviewPicture.h"

namespace blattwart {

namespace {

constexpr std::size_t mostPictures = 64;
constexpr std::size_t mostBytes = 64U << 20;  // of all together

}  // namespace

/// What the worker is to find out about a file.
struct TemplatePictures::Reading {
    Known known;            ///< as it was before, then as it is
    bool wasKnown = false;  ///< before: the picture need not be read when size and time are the same
    bool isKnown = false;   ///< the file could be opened
};

void TemplatePictures::show(const std::wstring& file) {
    wanted_ = file;
    showKnown();
    if (!reading_) begin();
}

void TemplatePictures::begin() {
    if (wanted_.empty()) return;
    const auto reading = std::make_shared<Reading>();
    if (const Known* before = known(wanted_)) {
        reading->known = *before;
        reading->wasKnown = true;
    }
    reading->known.file = wanted_;
    ignoringErrors([&] {
        worker_.run([&files = files_, reading] { read(files, *reading); },
                    [this, reading] { finish(*reading); });
        reading_ = true;
    });
}

/// Runs on the worker's thread.
void TemplatePictures::read(Files& files, Reading& reading) {
    const auto file = files.open(reading.known.file);
    if (!file) return;
    Known now{reading.known.file, file->size(), file->lastWritten(), reading.known.picture};
    if (!reading.wasKnown || now.size != reading.known.size || now.written != reading.known.written) {
        now.picture.reset();
        if (auto picture = readPreviewPicture(*file))
            now.picture = std::make_shared<const EncodedPicture>(std::move(*picture));
    }
    reading.known = std::move(now);
    reading.isKnown = true;
}

void TemplatePictures::finish(const Reading& reading) {
    reading_ = false;
    std::erase_if(known_, [&](const Known& known) { return known.file == reading.known.file; });
    if (reading.isKnown) keep(reading.known);
    if (reading.known.file == wanted_) {
        showKnown();
    } else {
        begin();
    }
}

const TemplatePictures::Known* TemplatePictures::known(const std::wstring& file) {
    const auto found = std::ranges::find(known_, file, &Known::file);
    if (found == known_.end()) return nullptr;
    known_.splice(known_.begin(), known_, found);
    return &known_.front();
}

void TemplatePictures::keep(const Known& known) {
    known_.push_front(known);
    const auto bytes = [](const Known& one) { return one.picture ? one.picture->bytes.size() : 0; };
    std::size_t total = 0;
    for (const Known& one : known_) total += bytes(one);
    while (known_.size() > mostPictures || (total > mostBytes && known_.size() > 1)) {
        total -= bytes(known_.back());
        known_.pop_back();
    }
}

void TemplatePictures::showKnown() {
    const Known* one = known(wanted_);
    if (!one || !one->picture) return box_.show(nullptr, {});
    box_.show(one->picture, L"Vorschau von " + wanted_.substr(wanted_.rfind(L'\\') + 1));
}

}  // namespace blattwart
