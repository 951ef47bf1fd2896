#include "ui/common/running_work.h"

namespace mosslantern {

RunningWork::Piece::Piece(RunningWork &work, Kind kind)
    : m_work(&work)
    , m_kind(kind)
{
    work.add(kind, 1);
}

RunningWork::Piece::~Piece()
{
    if (m_work)
        m_work->add(m_kind, -1);
}

void RunningWork::add(Kind kind, int pieces)
{
    m_pieces[static_cast<size_t>(kind)] += pieces;
    emit changed();
}

} // namespace mosslantern
