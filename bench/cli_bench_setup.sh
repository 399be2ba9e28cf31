# What the companion's benches share: `$cli`, a Release quillet-cli built into build-bench/ (or
# BENCH_BUILD_DIR), `$work`, a folder gone at the end, and the hard clips, made by ffmpeg to be hard
# on a rate control and on a forecast. Source this file with `top` set to the checkout; then
# `make_clip NAME` writes $clips_dir/NAME.mp4 unless it is there already (set BENCH_CLIPS to keep
# them between runs), and `hard_clips` lists the names.
build=${BENCH_BUILD_DIR:-$top/build-bench}
cmake -S "$top" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build "$build" --target quillet-cli >/dev/null
cli=$build/quillet-cli

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

clips_dir=${BENCH_CLIPS:-$work}
mkdir -p "$clips_dir"
hard_clips=(scenes grain hd1080 vfr surround silent flashes zoom automaton still short long)

stereo="sine=frequency=440:sample_rate=48000,aformat=channel_layouts=stereo"
# make_clip NAME: the clip, as lossless-ish H.264 so that every target is a real reduction.
make_clip() {
    local final=$clips_dir/$1.mp4
    [ -s "$final" ] && return 0
    local out=$clips_dir/$1.making.mp4 # takes its name only when whole
    local encode=(-c:v libx264 -preset ultrafast -crf 14 -pix_fmt yuv420p)
    case $1 in
        scenes) # five 6-second scenes of unrelated pictures, 720p
            ffmpeg -v error -f lavfi -i "testsrc2=s=1280x720:r=30:d=6" \
                -f lavfi -i "mandelbrot=s=1280x720:r=30,trim=duration=6" \
                -f lavfi -i "nullsrc=s=1280x720:r=30,geq=random(1)*255:128:128,trim=duration=6" \
                -f lavfi -i "smptehdbars=s=1280x720:r=30:d=6" \
                -f lavfi -i "life=s=1280x720:r=30:mold=10:ratio=0.1,trim=duration=6" \
                -f lavfi -i "$stereo" -filter_complex \
                "[0:v]format=yuv420p[a];[1:v]format=yuv420p[b];[2:v]format=yuv420p[c];[3:v]format=yuv420p[d];[4:v]format=yuv420p[e];[a][b][c][d][e]concat=n=5:v=1:a=0[v]" \
                -map "[v]" -map 5:a -t 30 "${encode[@]}" -c:a aac "$out" ;;
        grain) # film-grain noise over colour bars, 720p
            ffmpeg -v error -f lavfi -i "smptehdbars=s=1280x720:r=25,noise=alls=30:allf=t+u" \
                -f lavfi -i "$stereo" -t 20 "${encode[@]}" -c:a aac "$out" ;;
        hd1080) # a moving pattern with light noise, 1080p
            ffmpeg -v error -f lavfi -i "testsrc2=s=1920x1080:r=25,noise=alls=8:allf=t" \
                -f lavfi -i "$stereo" -t 10 "${encode[@]}" -c:a aac "$out" ;;
        vfr) # 20 s at 15 fps, then 20 s at 30 fps
            ffmpeg -v error -f lavfi -i "testsrc2=s=640x360:r=15:d=20" \
                -f lavfi -i "testsrc2=s=640x360:r=30:d=20" -f lavfi -i "$stereo" -filter_complex \
                "[0:v]setpts=PTS-STARTPTS[a];[1:v]setpts=PTS-STARTPTS[b];[a][b]concat=n=2:v=1:a=0[v]" \
                -map "[v]" -map 2:a -t 40 -fps_mode vfr "${encode[@]}" -c:a aac "$out" ;;
        surround) # 5.1 sound beside a fractal
            ffmpeg -v error -f lavfi -i "mandelbrot=s=640x360:r=25" \
                -f lavfi -i "sine=f=220:sample_rate=48000" -f lavfi -i "sine=f=330:sample_rate=48000" \
                -f lavfi -i "sine=f=440:sample_rate=48000" -f lavfi -i "sine=f=55:sample_rate=48000" \
                -f lavfi -i "sine=f=550:sample_rate=48000" -f lavfi -i "sine=f=660:sample_rate=48000" \
                -filter_complex "[1:a][2:a][3:a][4:a][5:a][6:a]join=inputs=6:channel_layout=5.1[s]" \
                -map 0:v -map "[s]" -t 20 "${encode[@]}" -c:a aac -b:a 384k "$out" ;;
        silent) # no sound at all
            ffmpeg -v error -f lavfi -i "cellauto=s=640x360:r=25:rule=30" -t 20 "${encode[@]}" "$out" ;;
        flashes) # a pattern that turns black and white every second
            ffmpeg -v error -f lavfi -i "testsrc2=s=1280x720:r=25" -f lavfi -i "$stereo" \
                -vf "eq=brightness='if(lt(mod(t,2),1),-0.6,0.6)':eval=frame" -t 20 \
                "${encode[@]}" -c:a aac "$out" ;;
        zoom) # a fractal zoom, 720p
            ffmpeg -v error -f lavfi -i "mandelbrot=s=1280x720:r=25" -f lavfi -i "$stereo" -t 20 \
                "${encode[@]}" -c:a aac "$out" ;;
        automaton) # a cellular automaton, all fine detail
            ffmpeg -v error -f lavfi -i "cellauto=s=640x360:r=25:rule=18" -f lavfi -i "$stereo" \
                -t 20 "${encode[@]}" -c:a aac "$out" ;;
        still) # a still picture with faint noise: little to spend bits on
            ffmpeg -v error -f lavfi -i "smptebars=s=640x360:r=25,noise=alls=3:allf=t" \
                -f lavfi -i "$stereo" -t 20 "${encode[@]}" -c:a aac "$out" ;;
        short) # three seconds of noise and movement
            ffmpeg -v error -f lavfi -i "testsrc2=s=1280x720:r=30,noise=alls=20:allf=t" \
                -f lavfi -i "$stereo" -t 3 "${encode[@]}" -c:a aac "$out" ;;
        long) # three minutes of a pattern that changes scene every 20 seconds
            ffmpeg -v error -f lavfi -i "testsrc2=s=426x240:r=25" -f lavfi -i "$stereo" \
                -vf "hue=h='floor(t/20)*60':s='1+mod(floor(t/20),3)'" -t 180 \
                "${encode[@]}" -c:a aac "$out" ;;
    esac
    mv "$out" "$final"
}
