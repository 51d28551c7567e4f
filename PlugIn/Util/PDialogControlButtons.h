// Binders of buttons, which show a text or an image, and of static images. Whether a button shows an image, and of
// which kind, its window's style says; the text is then the name of the image (PDialogImage.h). A button without an
// image shows the text itself.
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

// A flag; null makes ToDialog and FromDialog answer -1.
class PDialogControlCheckBox : public PDialogControlButton {
 public:
    PDialogControlCheckBox(HWND window, ControlState state, const std::string& tooltip, const std::string& textOrImage,
                           bool* flag);
    int ToDialog() override;
    int FromDialog() override;

 private:
    bool* flag_;
};

// One of several buttons that share a variable; each stands for a value of its own.
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
