// SPDX-License-Identifier: MIT
#include "peers/GraphicsMagickPeer.hpp"

#include <magick/api.h>

#include <cstring>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>

#include "support/ScratchFolder.hpp"

namespace mobrel::bench {
namespace {

struct ImageDeleter {
    void operator()(Image* image) const { DestroyImageList(image); }
};
using ImageHandle = std::unique_ptr<Image, ImageDeleter>;

struct InfoDeleter {
    void operator()(ImageInfo* info) const { DestroyImageInfo(info); }
};
using InfoHandle = std::unique_ptr<ImageInfo, InfoDeleter>;

/// The library's report of what went wrong in a call.
class Report {
 public:
    Report() { GetExceptionInfo(&m_info); }
    ~Report() { DestroyExceptionInfo(&m_info); }
    Report(const Report&) = delete;
    Report& operator=(const Report&) = delete;

    ExceptionInfo* info() { return &m_info; }

 private:
    ExceptionInfo m_info{};
};

ImageHandle held(Image* image) {
    if (image == nullptr) throw std::runtime_error("GraphicsMagick gave no image");
    return ImageHandle(image);
}

void require(bool done) {
    if (!done) throw std::runtime_error("GraphicsMagick failed");
}

ImageHandle imageOf(const cDIB& picture) {
    Report report;
    ImageHandle image = held(ConstituteImage(static_cast<unsigned long>(picture.Width()),
                                             static_cast<unsigned long>(picture.Height()), "BGRP", CharPixel,
                                             picture.DIBitsPtr(), report.info()));
    image->matte = MagickFalse;
    return image;
}

struct Images {
    ImageHandle source;
    ImageHandle from;
    ImageHandle to;
};

/// Either changes `from` or gives a new image.
using Work = std::function<Image*(Image* from, ExceptionInfo* report)>;

PeerOperation nearest(std::string_view operation, const Work& work) {
    return {operation, [work](const cDIB& picture) -> PeerRun {
                const auto images = std::make_shared<Images>();
                images->source = imageOf(picture);
                return {[images] {
                            Report report;
                            images->to.reset();
                            images->from = held(CloneImage(images->source.get(), 0, 0, 1, report.info()));
                            // A clone shares its pixels until it is written to.
                            require(GetImagePixels(images->from.get(), 0, 0, images->from->columns,
                                                   images->from->rows) != nullptr &&
                                    SyncImagePixels(images->from.get()) != MagickFail);
                        },
                        [images, work] {
                            Report report;
                            images->to.reset(work(images->from.get(), report.info()));
                        }};
            }};
}

Image* quantized(Image* from, unsigned colours, bool grey) {
    QuantizeInfo quantize;
    GetQuantizeInfo(&quantize);
    quantize.number_colors = colours;
    quantize.dither = MagickTrue;
    if (grey) quantize.colorspace = GRAYColorspace;
    require(QuantizeImage(&quantize, from) != MagickFail);
    return nullptr;
}

void write(Image* image, const std::string& name) {
    const InfoHandle info(CloneImageInfo(nullptr));
    std::strncpy(image->filename, name.c_str(), sizeof image->filename - 1);
    require(WriteImage(info.get(), image) != MagickFail);
}

Image* save(Image* from, ExceptionInfo* /*report*/) {
    static const ScratchFolder folder;
    write(from, "BMP3:" + (folder.path() / "graphicsmagick.bmp").string());
    return nullptr;
}

PeerRun openLoad(const cDIB& picture) {
    const auto folder = std::make_shared<ScratchFolder>();
    const std::string file = (folder->path() / "graphicsmagick.bmp").string();
    write(imageOf(picture).get(), "BMP3:" + file);
    return {[] {},
            [folder, file] {
                Report report;
                const InfoHandle info(CloneImageInfo(nullptr));
                std::strncpy(info->filename, file.c_str(), sizeof info->filename - 1);
                held(ReadImage(info.get(), report.info()));
            }};
}

}  // namespace

Peer graphicsMagickPeer() {
    InitializeMagick(nullptr);
    SetMagickResourceLimit(ThreadsResource, 1);
    return {
        "GraphicsMagick",
        {
            nearest("Despeckle", DespeckleImage),
            nearest("Noise", [](Image* from,
                                ExceptionInfo* report) { return AddNoiseImage(from, UniformNoise, report); }),
            nearest("Diffuse",
                    [](Image* from, ExceptionInfo* report) { return SpreadImage(from, 6, report); }),
            nearest("Saturation",
                    [](Image* from, ExceptionInfo*) -> Image* {
                        require(ModulateImage(from, "100,160,100") != MagickFail);
                        return nullptr;
                    }),
            nearest("Outline", [](Image* from, ExceptionInfo* report) { return EdgeImage(from, 1, report); }),
            nearest("DitherToBlackAndWhite",
                    [](Image* from, ExceptionInfo*) { return quantized(from, 2, true); }),
            nearest("DitherToGreyPalette_16",
                    [](Image* from, ExceptionInfo*) { return quantized(from, 16, true); }),
            nearest("DitherToGreyPalette_256",
                    [](Image* from, ExceptionInfo*) { return quantized(from, 256, true); }),
            nearest("Colors16", [](Image* from, ExceptionInfo*) { return quantized(from, 16, false); }),
            nearest("Colors256", [](Image* from, ExceptionInfo*) { return quantized(from, 256, false); }),
            nearest("CountColors",
                    [](Image* from, ExceptionInfo* report) -> Image* {
                        require(GetNumberColors(from, nullptr, report) > 0);
                        return nullptr;
                    }),
            nearest("Orientation_FlipH", FlopImage),
            nearest("Orientation_FlipV", FlipImage),
            nearest("Orientation_Rotate90",
                    [](Image* from, ExceptionInfo* report) { return RotateImage(from, 90, report); }),
            nearest("StretchDIB_quarter",
                    [](Image* from, ExceptionInfo* report) {
                        return ResizeImage(from, from->columns / 4, from->rows / 4, CatromFilter, 1, report);
                    }),
            nearest("Save_BMP", save),
            {"Load_BMP", openLoad},
        },
    };
}

}  // namespace mobrel::bench
