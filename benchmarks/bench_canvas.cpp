// Repaint time of the 3D view, as each turn of a spin box causes it.
#include "SourceFiles/abcGLCanvas.h"
#include "controller/roomadjustmentdata.h"

#include <QApplication>

#include <benchmark/benchmark.h>

namespace
{

// What the view gets in the dialog at its first size.
const QSize canvas_size(700, 550);

const double view_distance_per_scale = 300.0;

// As the fine tab sets the view up after loading.
void show_room(AbcGLCanvas& canvas, double origin_distance)
{
    RoomAdjustmentData data;
    data.translation[0] = origin_distance;
    canvas.loadRoom(&data);
    const double distance = canvas.getBestZValue();
    canvas.setRoomScaleFactor(distance / view_distance_per_scale);
    canvas.setViewPosition(bsVector(0, 0, -distance));
    canvas.showXYGrid(true);
}

// Argument: distance of the origin frame from the transformed frame, in mm.
void repaint(benchmark::State& state)
{
    AbcGLCanvas canvas(nullptr, nullptr);
    canvas.resize(canvas_size);
    canvas.show();
    QApplication::processEvents();
    show_room(canvas, static_cast<double>(state.range(0)));
    for (auto _ : state) {
        canvas.updateGL();
        glFinish();
    }
    state.SetLabel(reinterpret_cast<const char*>(glGetString(GL_RENDERER)));
}

} // namespace

// Wall time: a software renderer draws in threads of its own.
BENCHMARK(repaint)
    ->ArgName("origin_mm")
    ->Arg(0)
    ->Arg(10000)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Repetitions(9)
    ->ReportAggregatesOnly();

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
