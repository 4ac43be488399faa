[Blue]
1Blue=pics/48/blue1.bmp
2Blue=pics/48/blue2.bmp
3Blue=pics/48/blue3.bmp
[Red]
1Red=pics/48/red1.bmp
2Red=pics/48/red2.bmp
3Red=pics/48/red3.bmp
