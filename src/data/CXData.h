#pragma once

#include <utility>

#include "data/Collection.h"
#include "data/CXWert.h"
#include "host/Document.h"
#include "platform/Locale.h"
#include "platform/MessageBoxes.h"

namespace blattwart {

/// Tells the user that extended data could not be read: once, however many objects fail. Whoever reads many
/// objects in one go makes one for all of them, and tells when what he shows is complete.
class XDataReport {
  public:
    explicit XDataReport(MessageBoxes& messages) : messages_(messages) {}

    void readingFailed() { hasReadingFailed_ = true; }
    void writingFailed();
    /// Whether the data of an object could not be read so far.
    bool hasReadingFailed() const { return hasReadingFailed_; }
    /// Shows the message when reading has failed.
    void tellFailedReading();

  private:
    MessageBoxes& messages_;
    bool hasReadingFailed_ = false;
};

/// Whose extended data are meant and how failures are told.
struct XDataSource {
    host::Document document;  ///< where the object id is looked up
    host::Entity object;      ///< the object itself if the caller has it: nothing is looked up then
    XDataReport& report;
    const Locale& locale;
};

/// The program's own extended data of one drawing object: texts numbered by their types. Types below 100 are
/// stored as object handles, others as plain text.
class CXData {
  public:
    explicit CXData(XDataSource source) : source_(std::move(source)) {}

    std::int32_t objId = 0;     ///< of the drawing object
    Value Wert;                 ///< the value last fetched, or to be added
    std::int16_t DataTyp = 0;   ///< the type that AddXWert and GetXWertByTyp work on
    Collection<CXWert> values;  ///< keyed by the decimal text of their types
    bool Vorhanden = false;     ///< whether the object was found to carry data, be it without any value

    /// Writes the values to the object; nothing when there are none. The user is told when it fails.
    void SetXDataWerte();
    /// Adds the object's stored values to the list. A failure is reported; values up to there stay.
    void GetXDataWerte();
    /// Puts Wert into the list as the value of DataTyp, in place of an earlier one; an empty Wert only
    /// removes that.
    void AddXWert();
    /// Takes the value of DataTyp into Wert; empty when there is none.
    void GetXWertByTyp();

  private:
    host::Entity object() const;
    void addPairs(const ValueArray& stored);

    XDataSource source_;
};

}  // namespace blattwart
