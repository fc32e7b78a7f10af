#include "tools/TransformToolExtender.h"

namespace TES {

TransformToolExtender *TransformToolExtender::_instance = nullptr;

TransformToolExtender::TransformToolExtender()
{
    _instance = this;
}

TransformToolExtender::~TransformToolExtender()
{
    _instance = nullptr;
}

TransformToolExtender &TransformToolExtender::i()
{
    return *_instance;
}

TransformToolExtender *TransformToolExtender::ip()
{
    return _instance;
}

ITransformToolDelegate *TransformToolExtender::Delegate()
{
    return _instance ? _instance->_delegate : nullptr;
}

} // namespace TES
