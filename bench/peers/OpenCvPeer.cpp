// SPDX-License-Identifier: MIT
#include "peers/OpenCvPeer.hpp"

#include <memory>
#include <opencv2/core.hpp>
#include <opencv2/imgcodecs.hpp>
#include <opencv2/imgproc.hpp>
#include <string>

#include "support/ScratchFolder.hpp"

namespace mobrel::bench {
namespace {

using cv::Mat;

/// `from` may be overwritten; `to` keeps its memory from round to round.
using Work = void (*)(Mat& from, Mat& to);

struct Pictures {
    Mat source;
    Mat from;
    Mat to;
};

Mat viewOf(const cDIB& picture) {
    auto* const bits = const_cast<std::uint8_t*>(picture.DIBitsPtr());  // only read
    return {picture.Height(), picture.Width(), CV_8UC4, bits};
}

PeerRun open(const cDIB& picture, Work work) {
    const auto pictures = std::make_shared<Pictures>();
    pictures->source = viewOf(picture);
    return {[pictures] { pictures->source.copyTo(pictures->from); },
            [pictures, work] { work(pictures->from, pictures->to); }};
}

PeerOperation nearest(std::string_view operation, Work work) {
    return {operation, [work](const cDIB& picture) { return open(picture, work); }};
}

Mat kernel3(float corner, float side, float centre) {
    return (cv::Mat_<float>(3, 3) << corner, side, corner, side, centre, side, corner, side, corner);
}

void emboss(Mat& from, Mat& to) {
    static const Mat kernel = (cv::Mat_<float>(3, 3) << 0, 0, 0, 0, 1, -1, 0, 0, 0);
    cv::filter2D(from, to, -1, kernel, {-1, -1}, 128);
}

void relieve(Mat& from, Mat& to) {
    static const Mat kernel = (cv::Mat_<float>(3, 3) << -1, -1, 0, -1, 1, 1, 0, 1, 1);
    cv::filter2D(from, to, -1, kernel);
}

void rank(Mat& from, Mat& to, int operation) {
    static const Mat cross = cv::getStructuringElement(cv::MORPH_CROSS, {3, 3});
    cv::morphologyEx(from, to, operation, cross);
}

void hueRoundTrip(Mat& from, Mat& to) {
    static Mat back;
    cv::cvtColor(from, to, cv::COLOR_BGR2HSV);
    cv::cvtColor(to, back, cv::COLOR_HSV2BGR);
}

void save(Mat& from, Mat& /*to*/) {
    static const ScratchFolder folder;
    Mat colours;
    cv::cvtColor(from, colours, cv::COLOR_BGRA2BGR);
    cv::imwrite((folder.path() / "opencv.bmp").string(), colours);
}

/// Loads what is saved before the first round.
PeerRun openLoad(const cDIB& picture) {
    const auto folder = std::make_shared<ScratchFolder>();
    const std::string file = (folder->path() / "opencv.bmp").string();
    Mat colours;
    cv::cvtColor(viewOf(picture), colours, cv::COLOR_BGRA2BGR);
    cv::imwrite(file, colours);
    const auto pixels = std::make_shared<Mat>();
    return {[] {}, [folder, file, pixels] { *pixels = cv::imread(file, cv::IMREAD_COLOR); }};
}

}  // namespace

Peer openCvPeer() {
    cv::setNumThreads(1);
    return {
        "OpenCV",
        {
            nearest("Negative", [](Mat& from, Mat& /*to*/) { cv::bitwise_not(from, from); }),
            nearest("ShiftRGB",
                    [](Mat& from, Mat& /*to*/) { cv::add(from, cv::Scalar(35, -10, 20, 0), from); }),
            nearest("Greys",
                    [](Mat& from, Mat& to) {
                        static Mat grey;
                        cv::cvtColor(from, grey, cv::COLOR_BGRA2GRAY);
                        cv::cvtColor(grey, to, cv::COLOR_GRAY2BGRA);
                    }),
            nearest("ScanLines",
                    [](Mat& from, Mat& to) {
                        static const Mat table(1, 256, CV_8U, cv::Scalar(77));
                        cv::LUT(from, table, to);
                    }),
            nearest("Contrast", [](Mat& from, Mat& to) { from.convertTo(to, -1, 1.5, -64); }),
            nearest("Saturation",
                    [](Mat& from, Mat& to) {
                        static const Mat matrix = (cv::Mat_<float>(4, 4) << 1.4F, -0.2F, -0.2F, 0, -0.2F,
                                                   1.4F, -0.2F, 0, -0.2F, -0.2F, 1.4F, 0, 0, 0, 0, 1);
                        cv::transform(from, to, matrix);
                    }),
            nearest("Colorize",
                    [](Mat& from, Mat& to) {
                        static const Mat matrix = (cv::Mat_<float>(4, 4) << 0.1F, 0.1F, 0.1F, 0, 0.2F, 0.2F,
                                                   0.2F, 0, 0.3F, 0.3F, 0.3F, 0, 0, 0, 0, 1);
                        cv::transform(from, to, matrix);
                    }),
            nearest("Blur",
                    [](Mat& from, Mat& to) { cv::filter2D(from, to, -1, kernel3(0.1F, 0.1F, 0.2F)); }),
            nearest("Sharpen", [](Mat& from, Mat& to) { cv::filter2D(from, to, -1, kernel3(-1, -1, 9)); }),
            nearest("Soften", [](Mat& from, Mat& to) { cv::filter2D(from, to, -1, kernel3(0, 0.2F, 0.2F)); }),
            nearest("Contour",
                    [](Mat& from, Mat& to) {
                        cv::dilate(from, to, Mat());
                        cv::subtract(to, from, to);
                        cv::bitwise_not(to, to);
                    }),
            nearest("Emboss", emboss),
            nearest("Engrave", emboss),
            nearest("Relieve", relieve),
            nearest("RankFilterMaximum", [](Mat& from, Mat& to) { rank(from, to, cv::MORPH_DILATE); }),
            nearest("RankFilterMinimum", [](Mat& from, Mat& to) { rank(from, to, cv::MORPH_ERODE); }),
            nearest("Noise",
                    [](Mat& from, Mat& to) {
                        to.create(from.size(), CV_8UC4);
                        cv::randu(to, 0, 50);
                        cv::add(from, to, from);
                    }),
            nearest("Pixelize",
                    [](Mat& from, Mat& to) {
                        static Mat small;
                        cv::resize(from, small, {}, 0.1, 0.1, cv::INTER_AREA);
                        cv::resize(small, to, from.size(), 0, 0, cv::INTER_NEAREST);
                    }),
            nearest("Shift_far", hueRoundTrip),
            nearest("Shift_near", hueRoundTrip),
            nearest("ReplaceL_far", hueRoundTrip),
            nearest("ReplaceL_near", hueRoundTrip),
            nearest("ReplaceHS_far", hueRoundTrip),
            nearest("ReplaceHS_near", hueRoundTrip),
            nearest("Orientation_FlipH", [](Mat& from, Mat& to) { cv::flip(from, to, 1); }),
            nearest("Orientation_FlipV", [](Mat& from, Mat& to) { cv::flip(from, to, 0); }),
            nearest("Orientation_Rotate90",
                    [](Mat& from, Mat& to) { cv::rotate(from, to, cv::ROTATE_90_CLOCKWISE); }),
            nearest("StretchDIB_quarter",
                    [](Mat& from, Mat& to) {
                        cv::resize(from, to, {from.cols / 4, from.rows / 4}, 0, 0, cv::INTER_AREA);
                    }),
            nearest("Save_BMP", save),
            {"Load_BMP", openLoad},
        },
    };
}

}  // namespace mobrel::bench
