#pragma once

#include "picture/Picture.h"

namespace pevrix {

// Whoever takes the delivered pictures: camera, recording, preview. May keep the picture; must not
// hold up the caller.
class IPictureConsumer
{
public:
    IPictureConsumer() = default;
    IPictureConsumer(const IPictureConsumer&) = delete;
    IPictureConsumer& operator=(const IPictureConsumer&) = delete;
    virtual ~IPictureConsumer() = default;

    virtual void show(const SharedPicture& picture) = 0;
};

} // namespace pevrix
