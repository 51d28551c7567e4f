// Required library; nothing in this module calls it.
// Binders of buttons, which show a text or an image, and of static images. The window style decides whether a button
// shows an image and of which kind; the text is then the image's name (PDialogImage.h). Without an image the button
// shows the text.
#pragma once

#include "Util/PDialogControl.h"
#include "Util/PDialogImage.h"

class PDialogControlButton : public PDialogControl {
 public:
    PDialogControlButton(HWND window, ControlState state, const std::string& tooltip, const std::string& textOrImage);
    int ToDialog() override;
    int FromDialog() override;

 private:
    HANDLE LoadImageOfStyle();

    std::string textOrImage_;
    PDialogImage image_;
};

// Binds a flag. ToDialog and FromDialog return -1 when it is null.
class PDialogControlCheckBox : public PDialogControlButton {
 public:
    PDialogControlCheckBox(HWND window, ControlState state, const std::string& tooltip, const std::string& textOrImage,
                           bool* flag);
    int ToDialog() override;
    int FromDialog() override;

 private:
    bool* flag_;
};

// Binds one of several buttons that share a variable; each has its own value.
class PDialogControlRadioButton : public PDialogControlButton {
 public:
    PDialogControlRadioButton(HWND window, ControlState state, const std::string& tooltip,
                              const std::string& textOrImage, float* variable, float ownValue);
    int ToDialog() override;
    int FromDialog() override;

 private:
    float* variable_;
    float ownValue_;
};

class PDialogControlStaticImage : public PDialogControl {
 public:
    PDialogControlStaticImage(HWND window, ControlState state, const std::string& tooltip, const std::string& image);
    int ToDialog() override;
    int FromDialog() override;

 private:
    std::string name_;
    PDialogImage image_;
};
