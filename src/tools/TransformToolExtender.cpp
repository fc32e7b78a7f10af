// SPDX-License-Identifier: MIT
#include "tools/TransformToolExtender.h"

namespace TES {

template<>
TransformToolExtender *Singleton<TransformToolExtender>::_instance = nullptr;

TransformToolExtender::TransformToolExtender()
{
    _instance = this;
}

TransformToolExtender::~TransformToolExtender()
{
    _instance = nullptr;
}

ITransformToolDelegate *TransformToolExtender::Delegate()
{
    return _instance ? _instance->_delegate : nullptr;
}

} // namespace TES
