[Blue]
1Blue=pics/96/blue1.bmp
2Blue=pics/96/blue2.bmp
3Blue=pics/96/blue3.bmp
[Red]
1Red=pics/96/red1.bmp
2Red=pics/96/red2.bmp
3Red=pics/96/red3.bmp
