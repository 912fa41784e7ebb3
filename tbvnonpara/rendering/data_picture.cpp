#include "tbvnonpara/rendering/data_picture.hpp"

#include "tbvnonpara/rendering/pictures/drawn_data.hpp"

namespace TBVNonPara::rendering {

PictureData pictureData(const workbook::EmbeddedApplication& application, std::string_view y,
                        std::string_view x, bool headers) {
    return {columnsAt(application, y, headers),
            x.empty() ? std::vector<PictureColumn>() : columnsAt(application, x, headers)};
}

std::string dataPicture(TBVNPMethod method, const PictureData& data, const clsNonParaBO& engine,
                        const Details* details) {
    return figureOf(drawnData(method, data, engine, details));
}

}  // namespace TBVNonPara::rendering
