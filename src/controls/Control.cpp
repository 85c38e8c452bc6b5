#include "controls/Control.h"

#include "controls/Keys.h"

namespace blattwart {

void Control::setWidth(float twips) {
    if (twips < 0) throwInvalidCall();
    change(width_, twips);
}

void Control::setHeight(float twips) {
    if (twips < 0) throwInvalidCall();
    change(height_, twips);
}

}  // namespace blattwart
