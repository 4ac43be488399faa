[Blue]
1Blue=pics/128/blue1.bmp
2Blue=pics/128/blue2.bmp
3Blue=pics/128/blue3.bmp
[Red]
1Red=pics/128/red1.bmp
2Red=pics/128/red2.bmp
3Red=pics/128/red3.bmp
