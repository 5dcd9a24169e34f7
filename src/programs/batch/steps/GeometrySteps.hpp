// SPDX-License-Identifier: MIT
// Another size, another position, a part: what changes the place of pixels, as steps.
#pragma once

#include "programs/batch/steps/StepKinds.hpp"

namespace mobrel::batch {

/// "Resize": to a size, or by a percentage. A side that is left out keeps the proportions.
StepKind resizeStep();

/// "Orientation": mirrors and a quarter turn.
StepKind orientationStep();

/// "Crop": to the part of a rectangle that lies in the picture.
StepKind cropStep();

/// Turns a picture that is stored with an EXIF orientation, 1 to 8, so that it stands upright.
///
/// Source: CIPA DC-008 (Exif 2.3), tag 0x0112.
void turnUpright(Document& document, int orientation);

}  // namespace mobrel::batch
