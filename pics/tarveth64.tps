[Blue]
1Blue=pics/64/blue1.bmp
2Blue=pics/64/blue2.bmp
3Blue=pics/64/blue3.bmp
[Red]
1Red=pics/64/red1.bmp
2Red=pics/64/red2.bmp
3Red=pics/64/red3.bmp
