[Blue]
1Blue=pics/32/blue1.bmp
2Blue=pics/32/blue2.bmp
3Blue=pics/32/blue3.bmp
[Red]
1Red=pics/32/red1.bmp
2Red=pics/32/red2.bmp
3Red=pics/32/red3.bmp
