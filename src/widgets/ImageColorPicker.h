// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"
#include "widgets/ImageScrollFrame.h"

#include <cstdint>

class QAction;
class QToolBar;

namespace TES {

class ImagePicker;

// An ImagePicker in a scroll area under a tool bar of zoom in, zoom out and reset: the user
// picks a pixel of an image with the eyedropper, and the widget keeps its linear index and
// passes the pick on. The wheel zooms too, never below 1. The widget owns its picker and
// tool bar.
class TES_EXPORT ImageColorPicker : public ImageScrollFrame
{
    Q_OBJECT

public:
    explicit ImageColorPicker(QWidget *parent = nullptr);
    ~ImageColorPicker() override;

    void setImage(QImage const &image);
    unsigned int getIndex() const;
    // Stores without telling anyone.
    void setIndex(unsigned int index);

signals:
    void indexSelected(uint32_t index, QColor const &color);

public slots:
    void zoomIn();
    void zoomOut();
    void zoomReset();
    // A pick: stores the index and passes it on.
    void indexChanged(unsigned int index, QColor const &color);

private:
    QToolBar *_toolBar;
    QAction *_zoomInAction;
    QAction *_zoomOutAction;
    QAction *_zoomResetAction;
    ImagePicker *_picker;
    uint32_t _index = 0;
};

} // namespace TES
