/* SPDX-License-Identifier: Apache-2.0 */
// The character data of every open element of a SAX2 load, one slot per
// depth.
//
// The first 100 levels live inside the object; deeper levels, which real
// documents seldom reach, are kept in storage that grows on demand. A slot
// keeps its capacity when cleared, so steady parsing allocates nothing here.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace zuxml {

template <class Slot> class CZUXMLTextStack {
public:
    static constexpr int32_t kFixedLevels = 100;

    Slot &At(int32_t depth) {
        if (depth < kFixedLevels)
            return m_aFixed[depth];
        const size_t deep = static_cast<size_t>(depth - kFixedLevels);
        if (deep >= m_Deep.size())
            m_Deep.resize(deep + 1);
        return m_Deep[deep];
    }

private:
    Slot m_aFixed[kFixedLevels];
    std::vector<Slot> m_Deep;
};

} // namespace zuxml
