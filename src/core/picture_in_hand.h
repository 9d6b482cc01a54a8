#pragma once

namespace platform {
class Picture;
}

namespace core {

class FileField;
class PictureDisplay;

// Makes a picture that came from outside the one in hand, by way of its working file: the file name
// field names that file and the viewer shows what was loaded from it. Without the file only Image1
// and the edit mark have it.
void takeInHand(const platform::Picture& picture, PictureDisplay& display, FileField& field);

} // namespace core
